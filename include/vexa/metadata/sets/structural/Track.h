#pragma once

#include <vexa/metadata/MetadataObject.h>
#include <vexa/metadata/sets/structural/Segment.h>

#include <cstdint>
#include <string>

inline namespace vexa_toolkit {

/// A package's view of one kind of data, over time (SMPTE 377M, GenericTrack).
class VEXA_EXPORT Track : public MetadataObject {
    VEXA_ABSTRACT_SET(Track);

    /// Unique within the package.
    VEXA_REQUIRED(std::uint32_t, TrackID, trackID);

    /// In a file package, the last four bytes of the keys of its essence elements, big-endian; 0
    /// where there are none. In a material package the number of an output channel, or 0.
    VEXA_OPTIONAL(std::uint32_t, TrackNumber, trackNumber);

    /// For a human reader.
    VEXA_OPTIONAL(std::wstring, TrackName, trackName);

    /// What is on the track, mostly a Sequence.
    VEXA_REQUIRED_STRONG(Segment, Segment, segment);
};

VEXA_SET_FACTORY(Track, MetadataObject);

} // namespace vexa_toolkit
