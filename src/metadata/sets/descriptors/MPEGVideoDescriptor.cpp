#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/MPEGVideoDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(MPEGVideoDescriptor);

MPEGVideoDescriptor::MPEGVideoDescriptor() = default;

const metadata::SetClass& MPEGVideoDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<MPEGVideoDescriptor, CDCIPictureDescriptor>(
            "060E2B34.02530101.0D010101.01015100"_key),
        {
            {VEXA_MEMBER(singleSequence), 0x8000, "060E2B34.01010105.04010602.01020000"_key},
            {VEXA_MEMBER(constantBFrames), 0x8001, "060E2B34.01010105.04010602.01030000"_key},
            {VEXA_MEMBER(codedContentType), 0x8002, "060E2B34.01010105.04010602.01040000"_key},
            {VEXA_MEMBER(lowDelay), 0x8003, "060E2B34.01010105.04010602.01050000"_key},
            {VEXA_MEMBER(closedGOP), 0x8004, "060E2B34.01010105.04010602.01060000"_key},
            {VEXA_MEMBER(identicalGOP), 0x8005, "060E2B34.01010105.04010602.01070000"_key},
            {VEXA_MEMBER(maxGOP), 0x8006, "060E2B34.01010105.04010602.01080000"_key},
            {VEXA_MEMBER(bPictureCount), 0x8007, "060E2B34.01010105.04010602.01090000"_key},
            {VEXA_MEMBER(bitRate), 0x8008, "060E2B34.01010105.04010602.010B0000"_key},
            {VEXA_MEMBER(profileAndLevel), 0x8009, "060E2B34.01010105.04010602.010A0000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
