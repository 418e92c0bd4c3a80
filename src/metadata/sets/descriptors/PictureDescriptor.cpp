#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/PictureDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(PictureDescriptor);

PictureDescriptor::PictureDescriptor() {
    setFrameLayout(255);
}

const metadata::SetClass& PictureDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<PictureDescriptor, FileDescriptor>(
            "060E2B34.02530101.0D010101.01012700"_key),
        {
            {VEXA_MEMBER(signalStandard), 0x3215, "060E2B34.01010105.04050113.00000000"_key},
            {VEXA_MEMBER(frameLayout), 0x320C, "060E2B34.01010101.04010301.04000000"_key},
            {VEXA_MEMBER(storedWidth), 0x3203, "060E2B34.01010101.04010502.02000000"_key},
            {VEXA_MEMBER(storedHeight), 0x3202, "060E2B34.01010101.04010502.01000000"_key},
            {VEXA_MEMBER(storedF2Offset), 0x3216, "060E2B34.01010105.04010302.08000000"_key},
            {VEXA_MEMBER(sampledWidth), 0x3205, "060E2B34.01010101.04010501.08000000"_key},
            {VEXA_MEMBER(sampledHeight), 0x3204, "060E2B34.01010101.04010501.07000000"_key},
            {VEXA_MEMBER(sampledXOffset), 0x3206, "060E2B34.01010101.04010501.09000000"_key},
            {VEXA_MEMBER(sampledYOffset), 0x3207, "060E2B34.01010101.04010501.0A000000"_key},
            {VEXA_MEMBER(displayHeight), 0x3208, "060E2B34.01010101.04010501.0B000000"_key},
            {VEXA_MEMBER(displayWidth), 0x3209, "060E2B34.01010101.04010501.0C000000"_key},
            {VEXA_MEMBER(displayXOffset), 0x320A, "060E2B34.01010101.04010501.0D000000"_key},
            {VEXA_MEMBER(displayYOffset), 0x320B, "060E2B34.01010101.04010501.0E000000"_key},
            {VEXA_MEMBER(displayF2Offset), 0x3217, "060E2B34.01010105.04010302.07000000"_key},
            {VEXA_MEMBER(aspectRatio), 0x320E, "060E2B34.01010101.04010101.01000000"_key},
            {VEXA_MEMBER(activeFormatDescriptor), 0x3218,
             "060E2B34.01010105.04010302.09000000"_key},
            {VEXA_MEMBER(videoLineMap), 0x320D, "060E2B34.01010102.04010302.05000000"_key},
            {VEXA_MEMBER(alphaTransparency), 0x320F, "060E2B34.01010102.05200102.00000000"_key},
            {VEXA_MEMBER(captureGamma), 0x3210, "060E2B34.01010102.04010201.01010200"_key},
            {VEXA_MEMBER(imageAlignmentOffset), 0x3211, "060E2B34.01010102.04180101.00000000"_key},
            {VEXA_MEMBER(imageStartOffset), 0x3213, "060E2B34.01010102.04180102.00000000"_key},
            {VEXA_MEMBER(imageEndOffset), 0x3214, "060E2B34.01010102.04180103.00000000"_key},
            {VEXA_MEMBER(fieldDominance), 0x3212, "060E2B34.01010102.04010301.06000000"_key},
            {VEXA_MEMBER(pictureEssenceCoding), 0x3201, "060E2B34.01010102.04010601.00000000"_key},
            {VEXA_MEMBER(codingEquations), 0x321A, "060E2B34.01010102.04010201.01030100"_key},
            {VEXA_MEMBER(colourPrimaries), 0x3219, "060E2B34.01010109.04010201.01060100"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
