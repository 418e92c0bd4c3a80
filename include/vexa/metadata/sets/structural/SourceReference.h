#pragma once

#include <vexa/metadata/UMID.h>
#include <vexa/metadata/sets/structural/Segment.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// A link to a track of another package (SMPTE 377M, SourceReference).
class VEXA_EXPORT SourceReference : public Segment {
    VEXA_ABSTRACT_SET(SourceReference);

    /// `packageUID` of the other package; all zero ends the chain.
    VEXA_REQUIRED(UMID, SourcePackageID, sourcePackageID);

    /// `trackID` in the other package; 0 where the chain ends.
    VEXA_REQUIRED(std::uint32_t, SourceTrackID, sourceTrackID);
};

VEXA_SET_FACTORY(SourceReference, Segment);

} // namespace vexa_toolkit
