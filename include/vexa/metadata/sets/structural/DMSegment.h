#pragma once

#include <vexa/metadata/sets/structural/CommentMarker.h>
#include <vexa/metadata/sets/structural/DescriptiveMetadataFramework.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// Attaches descriptive metadata to a stretch of a track (SMPTE 377M, DMSegment).
class VEXA_EXPORT DMSegment : public CommentMarker {
    VEXA_CONCRETE_SET(DMSegment);

    /// Tracks of the same package that it describes, by `trackID`; absent for all essence tracks
    /// (TrackIDs in the standard).
    VEXA_OPTIONAL(std::vector<std::uint32_t>, TargetTrackIDs, targetTrackIDs);

    /// The description; absent where there is none.
    VEXA_OPTIONAL_STRONG(DescriptiveMetadataFramework, DMFramework, dmFramework);
};

VEXA_SET_FACTORY(DMSegment, CommentMarker);

} // namespace vexa_toolkit
