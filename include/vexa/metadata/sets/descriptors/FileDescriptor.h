#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/klv/MXFUID.h>
#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/sets/descriptors/GenericDescriptor.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Essence in a container: the base of all descriptors of file packages (SMPTE 377M,
/// FileDescriptor).
class VEXA_EXPORT FileDescriptor : public GenericDescriptor {
    VEXA_ABSTRACT_SET(FileDescriptor);

    /// Track of the source package that it describes, by `trackID`; absent where it isn't a single
    /// one.
    VEXA_OPTIONAL(std::uint32_t, LinkedTrackID, linkedTrackID);

    /// Units of the essence in a second: pictures, or samples of sound. In files of version 1.2
    /// sound may have the edit rate.
    VEXA_REQUIRED(MXFRational, SampleRate, sampleRate);

    /// In edit units; absent where it is unknown.
    VEXA_OPTIONAL(std::int64_t, ContainerDuration, containerDuration);

    /// Label of the essence container. A MultipleDescriptor whose members lie in different ones has
    /// that of multiple wrappings.
    VEXA_REQUIRED(KLVKey, EssenceContainer, essenceContainer);

    /// Of a codec that can handle the essence.
    VEXA_OPTIONAL(MXFUID, Codec, codec);
};

VEXA_SET_FACTORY(FileDescriptor, GenericDescriptor);

} // namespace vexa_toolkit
