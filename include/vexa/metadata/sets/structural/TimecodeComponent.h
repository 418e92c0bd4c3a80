#pragma once

#include <vexa/metadata/sets/structural/Segment.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// A run of continuous timecode (SMPTE 377M, TimecodeComponent; SMPTE 12M).
class VEXA_EXPORT TimecodeComponent : public Segment {
    VEXA_CONCRETE_SET(TimecodeComponent);

    /// Of the first frame, in frames from midnight.
    VEXA_REQUIRED(std::int64_t, StartTimecode, startTimecode);

    /// Frames per second, rounded to a whole number: 30 for 30000/1001.
    VEXA_REQUIRED(std::uint16_t, RoundedTimecodeBase, roundedTimecodeBase);

    /// Whether timecode numbers are dropped to keep up with the clock at 30000/1001 and the like.
    VEXA_REQUIRED(bool, DropFrame, dropFrame);
};

VEXA_SET_FACTORY(TimecodeComponent, Segment);

} // namespace vexa_toolkit
