#pragma once

#include <vexa/Export.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <string>

inline namespace vexa_toolkit {

class TimecodeCalculator;

/// What a timecode says (SMPTE 12M).
struct TimecodeNumbers {
    std::uint8_t hours = 0;
    std::uint8_t minutes = 0;
    std::uint8_t seconds = 0;
    std::uint8_t frames = 0;
    bool dropFrame = false;
    /// At double rates, the second of two frames.
    bool fieldMark = false;
};

constexpr bool operator==(const TimecodeNumbers& a, const TimecodeNumbers& b) {
    return a.hours == b.hours && a.minutes == b.minutes && a.seconds == b.seconds &&
           a.frames == b.frames && a.dropFrame == b.dropFrame && a.fieldMark == b.fieldMark;
}

constexpr bool operator!=(const TimecodeNumbers& a, const TimecodeNumbers& b) {
    return !(a == b);
}

/// "hh:mm:ss:ff", or "hh:mm:ss;ff" with drop-frame counting. The field mark doesn't show.
VEXA_EXPORT std::string toString(const TimecodeNumbers& numbers);

/// Of a count, which the calculator doesn't bring back into the day. Any sub-frame but the first is
/// a field mark.
VEXA_EXPORT TimecodeNumbers numbersAt(const TimecodeCalculator& calculator, std::uint32_t count);

/// Of a frame of the day, counted from midnight, at a whole rate in frames per second (30 for
/// 30000/1001). None for a frame outside the day, and for a rate that has no calculator: 0, more
/// than 255, or drop-frame and no multiple of 30.
VEXA_EXPORT boost::optional<TimecodeNumbers> numbersAtFrame(std::int64_t frame, std::uint32_t rate,
                                                            bool dropFrame);

} // namespace vexa_toolkit
