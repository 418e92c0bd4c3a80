#pragma once

#include <vexa/metadata/sets/descriptors/SoundDescriptor.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Sound that is coded as MPEG audio.
class VEXA_EXPORT MPEGAudioDescriptor : public SoundDescriptor {
    VEXA_CONCRETE_SET(MPEGAudioDescriptor);

    /// Bits per second.
    VEXA_OPTIONAL(std::uint32_t, BitRate, bitRate);
};

VEXA_SET_FACTORY(MPEGAudioDescriptor, SoundDescriptor);

} // namespace vexa_toolkit
