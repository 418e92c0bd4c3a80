#pragma once

#include "util/byte_reader.h"

#include <vexa/klv/KLVKey.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

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

template <class UInt> void appendInteger(std::vector<std::uint8_t>& out, UInt value) {
    static_assert(std::is_unsigned_v<UInt>);
    std::array<std::uint8_t, sizeof(UInt)> octets;
    toOctets(value, octets.data(), octets.size());
    out.insert(out.end(), octets.begin(), octets.end());
}

/// An array of bytes. Throws util::assertion_failure "successful read()".
template <std::size_t size>
void readBytes(util::byte_reader& in, std::array<std::uint8_t, size>& bytes) {
    std::copy_n(in.take(size, "successful read()"), size, bytes.begin());
}

/// Throws util::assertion_failure "successful read()".
inline KLVKey decodeKey(util::byte_reader& in) {
    KLVKey key;
    readBytes(in, key.bytes);
    return key;
}

inline void appendKey(std::vector<std::uint8_t>& out, const KLVKey& key) {
    out.insert(out.end(), key.bytes.begin(), key.bytes.end());
}

} // namespace klvutil

} // namespace vexa_toolkit
