#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/CDCIPictureDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(CDCIPictureDescriptor);

CDCIPictureDescriptor::CDCIPictureDescriptor() = default;

const metadata::SetClass& CDCIPictureDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<CDCIPictureDescriptor, PictureDescriptor>(
            "060E2B34.02530101.0D010101.01012800"_key),
        {
            {VEXA_MEMBER(componentDepth), 0x3301, "060E2B34.01010102.04010503.0A000000"_key},
            {VEXA_MEMBER(horizontalSubsampling), 0x3302, "060E2B34.01010101.04010501.05000000"_key},
            {VEXA_MEMBER(verticalSubsampling), 0x3308, "060E2B34.01010102.04010501.10000000"_key},
            {VEXA_MEMBER(colourSiting), 0x3303, "060E2B34.01010101.04010501.06000000"_key},
            {VEXA_MEMBER(reversedByteOrder), 0x330B, "060E2B34.01010105.03010201.0A000000"_key},
            {VEXA_MEMBER(paddingBits), 0x3307, "060E2B34.01010102.04180104.00000000"_key},
            {VEXA_MEMBER(alphaSamplingDepth), 0x3309, "060E2B34.01010102.04010503.07000000"_key},
            {VEXA_MEMBER(blackReferenceLevel), 0x3304, "060E2B34.01010101.04010503.03000000"_key},
            {VEXA_MEMBER(whiteReferenceLevel), 0x3305, "060E2B34.01010101.04010503.04000000"_key},
            {VEXA_MEMBER(colourRange), 0x3306, "060E2B34.01010102.04010503.05000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
