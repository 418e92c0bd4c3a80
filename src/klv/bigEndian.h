#pragma once

#include "util/byte_reader.h"

#include <vexa/klv/KLVKey.h>
#include <vexa/klv/MXFUID.h>
#include <vexa/util/Bytes.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

inline namespace vexa_toolkit {

/// Big-endian integers and keys, for decoding values that are already delimited and for coding
/// them. A value that runs dry is an assertion failure, which the caller turns into a report.
namespace klvutil {

/// A number of up to 8 octets.
constexpr std::uint64_t fromOctets(const std::uint8_t* octets, std::size_t count) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        value = value << 8 | octets[i];
    }
    return value;
}

/// The low `count` octets of a number, up to 8.
constexpr void toOctets(std::uint64_t value, std::uint8_t* octets, std::size_t count) {
    for (std::size_t i = count; i-- > 0; value >>= 8) {
        octets[i] = static_cast<std::uint8_t>(value);
    }
}

/// Throws util::assertion_failure "successful get()".
template <class UInt> UInt readInteger(util::byte_reader& in) {
    static_assert(std::is_unsigned_v<UInt>);
    return static_cast<UInt>(fromOctets(in.take(sizeof(UInt), "successful get()"), sizeof(UInt)));
}

template <class UInt> void appendInteger(util::Bytes& out, UInt value) {
    static_assert(std::is_unsigned_v<UInt>);
    std::array<std::uint8_t, sizeof(UInt)> octets;
    toOctets(value, octets.data(), octets.size());
    out.insert(out.end(), octets.begin(), octets.end());
}

// One name for each direction, whatever the type: a record has its layout in one list of fields,
// which both use.

/// Two's complement where the type is signed.
template <class Int>
std::enable_if_t<std::is_integral_v<Int>> decode(util::byte_reader& in, Int& value) {
    value = static_cast<Int>(readInteger<std::make_unsigned_t<Int>>(in));
}
template <class Int> std::enable_if_t<std::is_integral_v<Int>> encode(util::Bytes& out, Int value) {
    appendInteger(out, static_cast<std::make_unsigned_t<Int>>(value));
}

/// Bytes as they are. Throws util::assertion_failure "successful read()".
template <std::size_t size>
void decode(util::byte_reader& in, std::array<std::uint8_t, size>& bytes) {
    std::copy_n(in.take(size, "successful read()"), size, bytes.begin());
}
template <std::size_t size>
void encode(util::Bytes& out, const std::array<std::uint8_t, size>& bytes) {
    out.insert(out.end(), bytes.begin(), bytes.end());
}

inline void decode(util::byte_reader& in, KLVKey& key) {
    decode(in, key.bytes);
}
inline void encode(util::Bytes& out, const KLVKey& key) {
    encode(out, key.bytes);
}

inline void decode(util::byte_reader& in, MXFUID& uid) {
    decode(in, uid.bytes);
}
inline void encode(util::Bytes& out, const MXFUID& uid) {
    encode(out, uid.bytes);
}

inline KLVKey decodeKey(util::byte_reader& in) {
    KLVKey key;
    decode(in, key);
    return key;
}

} // namespace klvutil

} // namespace vexa_toolkit
