#pragma once

#include <cstdint>

inline namespace vexa_toolkit {

/// A rate or ratio (SMPTE 377M, Rational). Files may hold any values, zero and negative included.
/// Equal are those of the same value, as 50/2 and 25/1 are; a denominator of 0 equals only another.
struct MXFRational {
    std::int32_t numerator = 0;
    std::int32_t denominator = 0;
};

constexpr bool operator==(const MXFRational& a, const MXFRational& b) {
    return (a.denominator == 0) == (b.denominator == 0) &&
           std::int64_t{a.numerator} * b.denominator == std::int64_t{b.numerator} * a.denominator;
}

constexpr bool operator!=(const MXFRational& a, const MXFRational& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
