#pragma once

#include <vexa/Export.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>

inline namespace vexa_toolkit {

/// A SMPTE universal label used as the key of a KLV triplet (SMPTE 336M).
///
/// Two keys are equal when all bytes but byte 7, the registry version, are equal; they are ordered
/// by the same bytes, first byte first. Bytes count from 0 here; the standards count from 1.
struct KLVKey {
    static constexpr std::size_t size = 16;
    static constexpr std::size_t versionByte = 7;

    std::array<std::uint8_t, size> bytes{};

    constexpr std::uint8_t operator[](std::size_t i) const { return bytes[i]; }
    constexpr std::uint8_t& operator[](std::size_t i) { return bytes[i]; }
};

namespace klvutil::detail {

/// Eight bytes of a key as a number, the first byte highest. Written out, it is one load.
constexpr std::uint64_t eightBytes(const KLVKey& key, std::size_t i) {
    return std::uint64_t{key[i]} << 56 | std::uint64_t{key[i + 1]} << 48 |
           std::uint64_t{key[i + 2]} << 40 | std::uint64_t{key[i + 3]} << 32 |
           std::uint64_t{key[i + 4]} << 24 | std::uint64_t{key[i + 5]} << 16 |
           std::uint64_t{key[i + 6]} << 8 | key[i + 7];
}

/// What keys are compared by: the first half without the registry version, then the second.
constexpr std::uint64_t firstHalf(const KLVKey& key) {
    return eightBytes(key, 0) & ~std::uint64_t{0xFF};
}
constexpr std::uint64_t secondHalf(const KLVKey& key) {
    return eightBytes(key, 8);
}

} // namespace klvutil::detail

constexpr bool operator==(const KLVKey& a, const KLVKey& b) {
    return klvutil::detail::firstHalf(a) == klvutil::detail::firstHalf(b) &&
           klvutil::detail::secondHalf(a) == klvutil::detail::secondHalf(b);
}

constexpr bool operator!=(const KLVKey& a, const KLVKey& b) {
    return !(a == b);
}

constexpr bool operator<(const KLVKey& a, const KLVKey& b) {
    return klvutil::detail::firstHalf(a) != klvutil::detail::firstHalf(b)
               ? klvutil::detail::firstHalf(a) < klvutil::detail::firstHalf(b)
               : klvutil::detail::secondHalf(a) < klvutil::detail::secondHalf(b);
}

/// Writes the key as 06.0E.2B.34. and so on; the stream's flags and fill stay as they were.
VEXA_EXPORT std::ostream& operator<<(std::ostream& out, const KLVKey& key);

} // namespace vexa_toolkit
