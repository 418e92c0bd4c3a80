#pragma once

#include <vexa/Export.h>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <type_traits>

inline namespace vexa_toolkit {

/// Converts between a frame count and the numbers of a timecode (SMPTE 12M), at one whole frame
/// rate, with or without drop-frame counting.
///
/// A count is in sub-frames: with 2 sub-frames per frame, one frame is 2 counts. Count 0 is
/// midnight, 00:00:00:00. A calculator doesn't change once made, and threads may share it.
class VEXA_EXPORT TimecodeCalculator {
public:
    virtual ~TimecodeCalculator();

    /// Takes any count; one beyond a day gives `hours` of 24 or more. Each number is truncated to
    /// its 8 bits: that shows in `hours` from 256 hours on, and in `frames` at rates above 256.
    /// `subFrame` may be null.
    virtual void frameCountToTimecode(std::uint32_t count, std::uint8_t& hours,
                                      std::uint8_t& minutes, std::uint8_t& seconds,
                                      std::uint8_t& frames, std::uint8_t* subFrame) const = 0;

    /// The count, modulo 2^32. A number that drop-frame counting leaves out gives the count of the
    /// first frame of its minute. Throws util::assertion_failure unless the timecode is
    /// representable.
    virtual std::uint32_t timecodeToFrameCount(std::uint8_t hours, std::uint8_t minutes,
                                               std::uint8_t seconds, std::uint8_t frames,
                                               std::uint8_t subFrame) const = 0;

    /// Whether some frame of the day has this timecode.
    virtual bool isValidTimecode(std::uint8_t hours, std::uint8_t minutes, std::uint8_t seconds,
                                 std::uint8_t frames, std::uint8_t subFrame) const = 0;

    /// Whether each number is in its range: what is valid, and the numbers that drop-frame counting
    /// leaves out.
    virtual bool isRepresentableTimecode(std::uint8_t hours, std::uint8_t minutes,
                                         std::uint8_t seconds, std::uint8_t frames,
                                         std::uint8_t subFrame) const = 0;

    /// The count of the same time of day from 0 to getFramesPerDay() - 1: wraps at midnight in both
    /// directions. Throws util::assertion_failure for a result above 2^31 - 1, which only days of
    /// more than 2^31 counts have.
    virtual std::uint32_t normalizeFrameCount(std::int32_t count) const = 0;

    /// Counts in a day, that is frames times sub-frames per frame, modulo 2^32.
    virtual std::uint32_t getFramesPerDay() const = 0;

    virtual bool isDropFrame() const = 0;
};

/// `rate` is in frames per second; for 29.97 and its like, the whole rate above it. `subFrames` is
/// per frame, and 0 counts as 1. Throws util::assertion_failure for a rate of 0, and for a
/// drop-frame rate that isn't a multiple of 30.
///
/// A plain `int` as the third argument is ambiguous: it takes an unsigned char or a bool.
VEXA_EXPORT boost::shared_ptr<TimecodeCalculator>
createTimecodeCalculator(unsigned char rate, bool dropFrame, unsigned char subFrames);

/// The same with 2 sub-frames per frame, or 1.
VEXA_EXPORT boost::shared_ptr<TimecodeCalculator>
createTimecodeCalculator(unsigned char rate, bool dropFrame, bool hasSubFrames);

/// For an edit rate, in frames per second, with 1 sub-frame per frame: drop-frame for multiples of
/// 30000/1001 that aren't whole, else regular at the nearest whole rate. Throws
/// util::assertion_failure for a zero denominator, and for a rate that is negative or rounds to 0.
VEXA_EXPORT boost::shared_ptr<TimecodeCalculator> createTimecodeCalculator(int numerator,
                                                                           int denominator);

/// There is none for a rate and drop-frame counting alone: the bool would be a denominator.
template <class Bool, class = std::enable_if_t<std::is_same<Bool, bool>::value>>
boost::shared_ptr<TimecodeCalculator> createTimecodeCalculator(int, Bool) = delete;

} // namespace vexa_toolkit
