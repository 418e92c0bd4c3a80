#pragma once

#include <cstdint>

inline namespace vexa_toolkit {

/// A date and time, as a rule UTC (SMPTE 377M, Timestamp). All zero means unknown.
struct MXFTimestamp {
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    /// Milliseconds divided by 4, 0 to 249.
    std::uint8_t millisecondsBy4 = 0;
};

constexpr bool operator==(const MXFTimestamp& a, const MXFTimestamp& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour &&
           a.minute == b.minute && a.second == b.second && a.millisecondsBy4 == b.millisecondsBy4;
}

constexpr bool operator!=(const MXFTimestamp& a, const MXFTimestamp& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
