#pragma once

#include <vexa/metadata/sets/structural/Segment.h>

#include <cstdint>
#include <string>

inline namespace vexa_toolkit {

/// Something that happens at a point of time or for a while (SMPTE 377M, Event).
class VEXA_EXPORT Event : public Segment {
    VEXA_ABSTRACT_SET(Event);

    /// Start on the event track, in its edit units (EventStartPosition in the standard). Absent on
    /// other tracks.
    VEXA_OPTIONAL(std::int64_t, Position, position);

    /// For a human reader (EventComment in the standard).
    VEXA_OPTIONAL(std::wstring, Comment, comment);
};

VEXA_SET_FACTORY(Event, Segment);

} // namespace vexa_toolkit
