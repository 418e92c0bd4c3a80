#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/AVCVideoSubDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(AVCVideoSubDescriptor);

AVCVideoSubDescriptor::AVCVideoSubDescriptor() = default;

const metadata::SetClass& AVCVideoSubDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<AVCVideoSubDescriptor, SubDescriptor>(
            "060E2B34.02530101.0D010101.01016E00"_key),
        {
            {VEXA_MEMBER(constantBPicture), 0x8001, "060E2B34.0101010E.04010606.01030000"_key},
            {VEXA_MEMBER(codedContentKind), 0x8002, "060E2B34.0101010E.04010606.01040000"_key},
            {VEXA_MEMBER(closedGOP), 0x8004, "060E2B34.0101010E.04010606.01060000"_key},
            {VEXA_MEMBER(identicalGOP), 0x8005, "060E2B34.0101010E.04010606.01070000"_key},
            {VEXA_MEMBER(maxGOP), 0x8006, "060E2B34.0101010E.04010606.01080000"_key},
            {VEXA_MEMBER(bPictureCount), 0x8007, "060E2B34.0101010E.04010606.01090000"_key},
            {VEXA_MEMBER(maximumBitRate), 0x8008, "060E2B34.0101010E.04010606.010B0000"_key},
            {VEXA_MEMBER(averageBitRate), 0x8012, "060E2B34.0101010E.04010606.01140000"_key},
            {VEXA_MEMBER(profile), 0x8009, "060E2B34.0101010E.04010606.010A0000"_key},
            {VEXA_MEMBER(profileConstraint), 0x800A, "060E2B34.0101010E.04010606.010C0000"_key},
            {VEXA_MEMBER(level), 0x800B, "060E2B34.0101010E.04010606.010D0000"_key},
            {VEXA_MEMBER(decodingDelay), 0x800C, "060E2B34.0101010E.04010606.010E0000"_key},
            {VEXA_MEMBER(maximumRefFrames), 0x800D, "060E2B34.0101010E.04010606.010F0000"_key},
            {VEXA_MEMBER(sequenceParameterSetFlag), 0x800E,
             "060E2B34.0101010E.04010606.01100000"_key},
            {VEXA_MEMBER(pictureParameterSetFlag), 0x800F,
             "060E2B34.0101010E.04010606.01110000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
