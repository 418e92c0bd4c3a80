#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/AES3AudioDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(AES3AudioDescriptor);

AES3AudioDescriptor::AES3AudioDescriptor() = default;

const metadata::SetClass& AES3AudioDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<AES3AudioDescriptor, WaveAudioDescriptor>(
            "060E2B34.02530101.0D010101.01014700"_key),
        {
            {VEXA_MEMBER(emphasis), 0x3D0D, "060E2B34.01010105.04020501.06000000"_key},
            {VEXA_MEMBER(blockStartOffset), 0x3D0F, "060E2B34.01010105.04020302.03000000"_key},
            {VEXA_MEMBER(auxiliaryBitsMode), 0x3D08, "060E2B34.01010105.04020501.01000000"_key},
            {VEXA_MEMBER(channelStatusDataMode), 0x3D10, "060E2B34.01010105.04020501.02000000"_key},
            {VEXA_MEMBER(fixedChannelStatusData), 0x3D11,
             "060E2B34.01010105.04020501.03000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
