#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

/// The components of a pixel, in the order in which they lie in it (SMPTE 377M, RGBALayout). Those
/// that aren't used stand at the end, all zero.
struct RGBALayout {
    struct Component {
        /// A letter such as 'R', or 216 to 218 for X, Y and Z.
        std::uint8_t code = 0;
        /// Bits.
        std::uint8_t depth = 0;
    };
    /// Bytes in a file.
    static constexpr std::size_t size = 16;

    std::array<Component, size / 2> components;
};

constexpr bool operator==(const RGBALayout& a, const RGBALayout& b) {
    for (std::size_t i = 0; i < a.components.size(); ++i) {
        if (a.components[i].code != b.components[i].code ||
            a.components[i].depth != b.components[i].depth) {
            return false;
        }
    }
    return true;
}

constexpr bool operator!=(const RGBALayout& a, const RGBALayout& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
