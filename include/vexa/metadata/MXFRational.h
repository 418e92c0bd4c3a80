#pragma once

#include <cstdint>

inline namespace vexa_toolkit {

/// A rate or ratio (SMPTE 377M, Rational). Files may hold any values, zero and negative included.
struct MXFRational {
    std::int32_t numerator = 0;
    std::int32_t denominator = 0;
};

constexpr bool operator==(const MXFRational& a, const MXFRational& b) {
    return a.numerator == b.numerator && a.denominator == b.denominator;
}

constexpr bool operator!=(const MXFRational& a, const MXFRational& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
