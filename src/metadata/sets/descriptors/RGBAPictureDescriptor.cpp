#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/RGBAPictureDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(RGBAPictureDescriptor);

RGBAPictureDescriptor::RGBAPictureDescriptor() = default;

const metadata::SetClass& RGBAPictureDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<RGBAPictureDescriptor, PictureDescriptor>(
            "060E2B34.02530101.0D010101.01012900"_key),
        {
            {VEXA_MEMBER(componentMaxReferenceLevel), 0x3406,
             "060E2B34.01010105.04010503.0B000000"_key},
            {VEXA_MEMBER(componentMinReferenceLevel), 0x3407,
             "060E2B34.01010105.04010503.0C000000"_key},
            {VEXA_MEMBER(alphaMaxReferenceLevel), 0x3408,
             "060E2B34.01010105.04010503.0D000000"_key},
            {VEXA_MEMBER(alphaMinReferenceLevel), 0x3409,
             "060E2B34.01010105.04010503.0E000000"_key},
            {VEXA_MEMBER(scanningDirection), 0x3405, "060E2B34.01010105.04010404.01000000"_key},
            {VEXA_MEMBER(pixelLayout), 0x3401, "060E2B34.01010102.04010503.06000000"_key},
            {VEXA_MEMBER(palette), 0x3403, "060E2B34.01010102.04010503.08000000"_key},
            {VEXA_MEMBER(paletteLayout), 0x3404, "060E2B34.01010102.04010503.09000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
