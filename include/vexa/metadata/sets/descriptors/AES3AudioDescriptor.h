#pragma once

#include <vexa/metadata/AES3ChannelStatusData.h>
#include <vexa/metadata/sets/descriptors/WaveAudioDescriptor.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// Sound that was AES3 data (SMPTE 382M, AES3AudioEssenceDescriptor).
class VEXA_EXPORT AES3AudioDescriptor : public WaveAudioDescriptor {
    VEXA_CONCRETE_SET(AES3AudioDescriptor);

    /// Emphasis code of the channel status, in the low bits.
    VEXA_OPTIONAL(std::uint8_t, Emphasis, emphasis);

    /// Position of the first Z preamble, with which a block of channel status begins, in the
    /// essence.
    VEXA_OPTIONAL(std::uint16_t, BlockStartOffset, blockStartOffset);

    /// How the auxiliary bits of a sample are used: the code of the channel status, in the low
    /// bits.
    VEXA_OPTIONAL(std::uint8_t, AuxiliaryBitsMode, auxiliaryBitsMode);

    /// For each channel, where its channel status is: 0 nowhere, 1 minimum and 2 standard by AES3,
    /// 3 `fixedChannelStatusData`, 4 a stream in the header, 5 the essence.
    VEXA_OPTIONAL(std::vector<std::uint8_t>, ChannelStatusDataMode, channelStatusDataMode);

    /// For each channel, the 24 bytes that its channel status always is.
    VEXA_OPTIONAL(std::vector<AES3ChannelStatusData>, FixedChannelStatusData,
                  fixedChannelStatusData);
};

VEXA_SET_FACTORY(AES3AudioDescriptor, WaveAudioDescriptor);

} // namespace vexa_toolkit
