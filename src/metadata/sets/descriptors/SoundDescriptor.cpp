#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/SoundDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(SoundDescriptor);

SoundDescriptor::SoundDescriptor() = default;

const metadata::SetClass& SoundDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<SoundDescriptor, FileDescriptor>(
            "060E2B34.02530101.0D010101.01014200"_key),
        {
            {VEXA_MEMBER(audioSamplingRate), 0x3D03, "060E2B34.01010105.04020301.01010000"_key},
            {VEXA_MEMBER(locked), 0x3D02, "060E2B34.01010104.04020301.04000000"_key},
            {VEXA_MEMBER(audioReferenceLevel), 0x3D04, "060E2B34.01010101.04020101.03000000"_key},
            {VEXA_MEMBER(electroSpatialFormulation), 0x3D05,
             "060E2B34.01010101.04020101.01000000"_key},
            {VEXA_MEMBER(channelCount), 0x3D07, "060E2B34.01010105.04020101.04000000"_key},
            {VEXA_MEMBER(quantizationBits), 0x3D01, "060E2B34.01010104.04020303.04000000"_key},
            {VEXA_MEMBER(dialNorm), 0x3D0C, "060E2B34.01010105.04020701.00000000"_key},
            {VEXA_MEMBER(soundEssenceCompression), 0x3D06,
             "060E2B34.01010102.04020402.00000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
