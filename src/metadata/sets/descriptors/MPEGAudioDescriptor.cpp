#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/MPEGAudioDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(MPEGAudioDescriptor);

MPEGAudioDescriptor::MPEGAudioDescriptor() = default;

const metadata::SetClass& MPEGAudioDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<MPEGAudioDescriptor, SoundDescriptor>(
            "060E2B34.02530101.0D010101.01015E00"_key),
        {
            {VEXA_MEMBER(bitRate), 0, "060E2B34.0101010A.04020403.01020000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
