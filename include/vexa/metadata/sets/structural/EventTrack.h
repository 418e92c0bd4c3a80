#pragma once

#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/sets/structural/Track.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// A track of events, which may overlap and leave gaps (SMPTE 377M, EventTrack).
class VEXA_EXPORT EventTrack : public Track {
    VEXA_CONCRETE_SET(EventTrack);

    /// Edit units per second, in which the events' positions count (EventEditRate in the standard).
    VEXA_REQUIRED(MXFRational, EditRate, editRate);

    /// Zero point of the events' positions, in edit units (EventOrigin in the standard).
    VEXA_OPTIONAL(std::int64_t, Origin, origin);
};

VEXA_SET_FACTORY(EventTrack, Track);

} // namespace vexa_toolkit
