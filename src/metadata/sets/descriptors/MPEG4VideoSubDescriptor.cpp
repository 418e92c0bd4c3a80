#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/MPEG4VideoSubDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(MPEG4VideoSubDescriptor);

MPEG4VideoSubDescriptor::MPEG4VideoSubDescriptor() = default;

const metadata::SetClass& MPEG4VideoSubDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<MPEG4VideoSubDescriptor, SubDescriptor>(
            "060E2B34.02530101.0D010101.01016800"_key),
        {
            {VEXA_MEMBER(singleSequence), 0x8000, "060E2B34.0101010D.04010602.02020000"_key},
            {VEXA_MEMBER(constantBVOPs), 0x8001, "060E2B34.0101010D.04010602.02030000"_key},
            {VEXA_MEMBER(codedContentType), 0x8002, "060E2B34.0101010D.04010602.02040000"_key},
            {VEXA_MEMBER(lowDelay), 0x8003, "060E2B34.0101010D.04010602.02050000"_key},
            {VEXA_MEMBER(closedGOV), 0x8004, "060E2B34.0101010D.04010602.02060000"_key},
            {VEXA_MEMBER(identicalGOV), 0x8005, "060E2B34.0101010D.04010602.02070000"_key},
            {VEXA_MEMBER(maxGOV), 0x8006, "060E2B34.0101010D.04010602.02080000"_key},
            {VEXA_MEMBER(bVOPCount), 0x8007, "060E2B34.0101010D.04010602.02090000"_key},
            {VEXA_MEMBER(bitRate), 0x8008, "060E2B34.0101010D.04010602.020B0000"_key},
            {VEXA_MEMBER(profileAndLevel), 0x8009, "060E2B34.0101010D.04010602.020A0000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
