#pragma once

#include <vexa/metadata/sets/structural/SourceClip.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// A source clip of descriptive metadata (SMPTE 377M, DMSourceClip).
class VEXA_EXPORT DMSourceClip : public SourceClip {
    VEXA_CONCRETE_SET(DMSourceClip);

    /// Tracks of the same package that the metadata describes, by `trackID`; absent for all essence
    /// tracks.
    VEXA_OPTIONAL(std::vector<std::uint32_t>, TargetTrackIDs, targetTrackIDs);
};

VEXA_SET_FACTORY(DMSourceClip, SourceClip);

} // namespace vexa_toolkit
