#pragma once

#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/sets/structural/Track.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// A track without overlaps and gaps (SMPTE 377M, TimelineTrack).
class VEXA_EXPORT TimelineTrack : public Track {
    VEXA_CONCRETE_SET(TimelineTrack);

    /// Edit units per second, in which durations and positions of the track count.
    VEXA_REQUIRED(MXFRational, EditRate, editRate);

    /// Zero point of the track, in edit units from its start. In a file package, what lies before
    /// it is there for decoding only.
    VEXA_REQUIRED(std::int64_t, Origin, origin);
};

VEXA_SET_FACTORY(TimelineTrack, Track);

} // namespace vexa_toolkit
