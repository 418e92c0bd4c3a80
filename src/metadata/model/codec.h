#pragma once

#include "klv/batch.h"
#include "klv/bigEndian.h"

#include <vexa/klv/KLVKey.h>
#include <vexa/klv/MXFUID.h>
#include <vexa/metadata/AES3ChannelStatusData.h>
#include <vexa/metadata/MXFProductVersion.h>
#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/MXFTimestamp.h>
#include <vexa/metadata/RGBALayout.h>
#include <vexa/metadata/UMID.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

inline namespace vexa_toolkit {

/// How the value of a property is coded (SMPTE 377M, property types): for each type what reads it
/// and what writes it, chosen by overload. Types of a fixed size can be elements of batches.
///
/// A value that doesn't fit its type is util::assertion_failure.
namespace metadata {

using klvutil::decode;
using klvutil::encode;
using util::byte_reader;
using util::Bytes;

/// Bytes of a value of the type; 0 where they vary.
template <class T> constexpr std::uint32_t wireSize = std::is_arithmetic_v<T> ? sizeof(T) : 0;
template <> inline constexpr std::uint32_t wireSize<KLVKey> = KLVKey::size;
template <> inline constexpr std::uint32_t wireSize<MXFUID> = MXFUID::size;
template <> inline constexpr std::uint32_t wireSize<MXFRational> = 8;
template <> inline constexpr std::uint32_t wireSize<MXFTimestamp> = 8;
template <> inline constexpr std::uint32_t wireSize<MXFProductVersion> = 10;
template <> inline constexpr std::uint32_t wireSize<RGBALayout> = RGBALayout::size;
template <>
inline constexpr std::uint32_t
    wireSize<AES3ChannelStatusData> = sizeof(AES3ChannelStatusData::bytes);

/// One byte; any but 0 is true.
inline void decode(byte_reader& in, bool& value) {
    value = klvutil::readInteger<std::uint8_t>(in) != 0;
}
inline void encode(Bytes& out, bool value) {
    out.push_back(value ? 1 : 0);
}

inline void decode(byte_reader& in, AES3ChannelStatusData& status) {
    decode(in, status.bytes);
}
inline void encode(Bytes& out, const AES3ChannelStatusData& status) {
    encode(out, status.bytes);
}

inline void decode(byte_reader& in, MXFRational& value) {
    decode(in, value.numerator);
    decode(in, value.denominator);
}
inline void encode(Bytes& out, const MXFRational& value) {
    encode(out, value.numerator);
    encode(out, value.denominator);
}

/// All 32 or 64 bytes of the value; the check is "valid size".
void decode(byte_reader& in, UMID& umid);
void encode(Bytes& out, const UMID& umid);

void decode(byte_reader& in, MXFTimestamp& time);
void encode(Bytes& out, const MXFTimestamp& time);

void decode(byte_reader& in, MXFProductVersion& version);
void encode(Bytes& out, const MXFProductVersion& version);

void decode(byte_reader& in, RGBALayout& layout);
void encode(Bytes& out, const RGBALayout& layout);

/// One code point for each element, UTF-16 on the wire, without a terminator. The checks are those
/// of util::wideFromUtf16 and util::appendUtf16.
void decode(byte_reader& in, std::wstring& text);
void encode(Bytes& out, const std::wstring& text);

/// Every byte.
void decode(byte_reader& in, std::string& text);
void encode(Bytes& out, const std::string& text);

/// A batch.
template <class T> void decode(byte_reader& in, std::vector<T>& batch) {
    static_assert(wireSize<T> != 0, "elements have a fixed size");
    batch = klvutil::readBatch(in, wireSize<T>, [](byte_reader& element) {
        T value{};
        decode(element, value);
        return value;
    });
}
template <class T> void encode(Bytes& out, const std::vector<T>& batch) {
    static_assert(wireSize<T> != 0, "elements have a fixed size");
    klvutil::appendBatch(out, batch, wireSize<T>,
                         [](Bytes& to, const T& element) { encode(to, element); });
}

/// A whole value, with the check "valid external length" that it is of the type's size, or used up.
template <class T> T decodeValue(const Bytes& bytes) {
    byte_reader in(bytes);
    util::check(wireSize<T> == 0 || bytes.size() == wireSize<T>, "valid external length");
    T value{};
    decode(in, value);
    klvutil::requireEnd(in);
    return value;
}
template <class T> Bytes encodeValue(const T& value) {
    Bytes bytes;
    bytes.reserve(wireSize<T>);
    encode(bytes, value);
    return bytes;
}

} // namespace metadata

} // namespace vexa_toolkit
