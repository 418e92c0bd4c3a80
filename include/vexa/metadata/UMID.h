#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

/// A unique material identifier (SMPTE 330M), basic or extended.
struct UMID {
    static constexpr std::size_t basicSize = 32;
    static constexpr std::size_t extendedSize = 64;

    /// A basic UMID takes the first 32 bytes.
    std::array<std::uint8_t, extendedSize> bytes{};
    bool extended = false;

    constexpr std::size_t size() const { return extended ? extendedSize : basicSize; }
};

constexpr bool operator==(const UMID& a, const UMID& b) {
    if (a.extended != b.extended) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a.bytes[i] != b.bytes[i]) {
            return false;
        }
    }
    return true;
}

constexpr bool operator!=(const UMID& a, const UMID& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
