#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/WaveAudioDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(WaveAudioDescriptor);

WaveAudioDescriptor::WaveAudioDescriptor() = default;

const metadata::SetClass& WaveAudioDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<WaveAudioDescriptor, SoundDescriptor>(
            "060E2B34.02530101.0D010101.01014800"_key),
        {
            {VEXA_MEMBER(blockAlign), 0x3D0A, "060E2B34.01010105.04020302.01000000"_key},
            {VEXA_MEMBER(sequenceOffset), 0x3D0B, "060E2B34.01010105.04020302.02000000"_key},
            {VEXA_MEMBER(averageBytesPerSecond), 0x3D09, "060E2B34.01010105.04020303.05000000"_key},
            {VEXA_MEMBER(channelAssignment), 0x3D32, "060E2B34.01010107.04020101.05000000"_key},
            {VEXA_MEMBER(peakEnvelopeVersion), 0x3D29, "060E2B34.01010108.04020301.06000000"_key},
            {VEXA_MEMBER(peakEnvelopeFormat), 0x3D2A, "060E2B34.01010108.04020301.07000000"_key},
            {VEXA_MEMBER(pointsPerPeakValue), 0x3D2B, "060E2B34.01010108.04020301.08000000"_key},
            {VEXA_MEMBER(peakEnvelopeBlockSize), 0x3D2C, "060E2B34.01010108.04020301.09000000"_key},
            {VEXA_MEMBER(peakChannels), 0x3D2D, "060E2B34.01010108.04020301.0A000000"_key},
            {VEXA_MEMBER(peakFrames), 0x3D2E, "060E2B34.01010108.04020301.0B000000"_key},
            {VEXA_MEMBER(peakOfPeaksPosition), 0x3D2F, "060E2B34.01010108.04020301.0C000000"_key},
            {VEXA_MEMBER(peakEnvelopeTimestamp), 0x3D30, "060E2B34.01010108.04020301.0D000000"_key},
            {VEXA_MEMBER(peakEnvelopeDataStream), 0x3D31,
             "060E2B34.01010108.04020301.0E000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
