#pragma once

#include <vexa/metadata/sets/structural/Track.h>

inline namespace vexa_toolkit {

/// A track for what holds all the time, without edit rate and duration (SMPTE 377M, StaticTrack).
class VEXA_EXPORT StaticTrack : public Track {
    VEXA_CONCRETE_SET(StaticTrack);
};

VEXA_SET_FACTORY(StaticTrack, Track);

} // namespace vexa_toolkit
