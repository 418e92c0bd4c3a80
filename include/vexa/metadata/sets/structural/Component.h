#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/metadata/MetadataObject.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// A piece of a track's timeline (SMPTE 377M, Component).
class VEXA_EXPORT Component : public MetadataObject {
    VEXA_ABSTRACT_SET(Component);

    /// Label of the kind of data: picture, sound, data, timecode or descriptive metadata.
    VEXA_REQUIRED(KLVKey, DataDefinition, dataDefinition);

    /// In edit units of the track; -1 is unknown. Absent on a static track.
    VEXA_OPTIONAL(std::int64_t, Duration, duration);
};

VEXA_SET_FACTORY(Component, MetadataObject);

} // namespace vexa_toolkit
