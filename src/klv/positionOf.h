#pragma once

#include <vexa/klv/Locator.h>

#include <cstdint>

inline namespace vexa_toolkit {

namespace klvutil {

/// A locator's position as a number: bytes from the start of the stream. -1 becomes 2^64 - 1.
inline std::uint64_t positionOf(const Locator& locator) {
    return static_cast<std::uint64_t>(std::streamoff(locator.getPosition()));
}

} // namespace klvutil

} // namespace vexa_toolkit
