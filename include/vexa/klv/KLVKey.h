#pragma once

#include <vexa/Export.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>

/// A SMPTE universal label used as the key of a KLV triplet (SMPTE 336M).
///
/// Two keys are equal when all bytes but byte 7, the registry version, are equal; they are ordered
/// by the same bytes, first byte first.
struct KLVKey {
    static constexpr std::size_t size = 16;
    static constexpr std::size_t versionByte = 7;

    std::array<std::uint8_t, size> bytes{};

    constexpr std::uint8_t operator[](std::size_t i) const { return bytes[i]; }
    constexpr std::uint8_t& operator[](std::size_t i) { return bytes[i]; }
};

constexpr bool operator==(const KLVKey& a, const KLVKey& b) {
    for (std::size_t i = 0; i < KLVKey::size; ++i) {
        if (i != KLVKey::versionByte && a[i] != b[i]) {
            return false;
        }
    }
    return true;
}

constexpr bool operator!=(const KLVKey& a, const KLVKey& b) {
    return !(a == b);
}

constexpr bool operator<(const KLVKey& a, const KLVKey& b) {
    for (std::size_t i = 0; i < KLVKey::size; ++i) {
        if (i != KLVKey::versionByte && a[i] != b[i]) {
            return a[i] < b[i];
        }
    }
    return false;
}

/// Writes the key as 06.0E.2B.34. and so on; the stream's flags and fill stay as they were.
VEXA_EXPORT std::ostream& operator<<(std::ostream& out, const KLVKey& key);
