#pragma once

#include <vexa/metadata/sets/structural/SourceReference.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// A stretch of a track of another package (SMPTE 377M, SourceClip).
class VEXA_EXPORT SourceClip : public SourceReference {
    VEXA_CONCRETE_SET(SourceClip);

    /// Offset of the clip from the origin of the source track, in edit units; 0 where the chain
    /// ends.
    VEXA_REQUIRED(std::int64_t, StartPosition, startPosition);
};

VEXA_SET_FACTORY(SourceClip, SourceReference);

} // namespace vexa_toolkit
