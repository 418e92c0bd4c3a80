#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/sets/descriptors/FileDescriptor.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Sound (SMPTE 377M, GenericSoundEssenceDescriptor).
class VEXA_EXPORT SoundDescriptor : public FileDescriptor {
    VEXA_CONCRETE_SET(SoundDescriptor);

    /// Hz, such as 48000/1.
    VEXA_REQUIRED(MXFRational, AudioSamplingRate, audioSamplingRate);

    /// Whether the number of samples is locked to the picture.
    VEXA_REQUIRED(bool, Locked, locked);

    /// dBm for 0 VU.
    VEXA_OPTIONAL(std::int8_t, AudioReferenceLevel, audioReferenceLevel);

    /// What the channels are to each other: 0 default of two channels, 1 two channels, 2 single
    /// channel, 3 primary and secondary, 4 stereo, 7 single channel at double sampling frequency, 8
    /// and 9 the same for the left and right of a stereo pair, 15 multichannel.
    VEXA_OPTIONAL(std::uint8_t, ElectroSpatialFormulation, electroSpatialFormulation);

    /// Channels of the essence that it describes, not of the whole file.
    VEXA_REQUIRED(std::uint32_t, ChannelCount, channelCount);

    /// Bits of a sample that are used.
    VEXA_REQUIRED(std::uint32_t, QuantizationBits, quantizationBits);

    /// Gain that makes the loudness of speech normal, in dB.
    VEXA_OPTIONAL(std::int8_t, DialNorm, dialNorm);

    /// Label of the coding; for uncompressed sound absent, or that of linear PCM.
    VEXA_OPTIONAL(KLVKey, SoundEssenceCompression, soundEssenceCompression);
};

VEXA_SET_FACTORY(SoundDescriptor, FileDescriptor);

} // namespace vexa_toolkit
