#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/Identification.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(Identification);

Identification::Identification() = default;

const metadata::SetClass& Identification::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<Identification, MetadataObject>(
            "060E2B34.02530101.0D010101.01013000"_key),
        {
            {VEXA_MEMBER(thisGenerationUID), 0x3C09, "060E2B34.01010102.05200701.01000000"_key},
            {VEXA_MEMBER(companyName), 0x3C01, "060E2B34.01010102.05200701.02010000"_key},
            {VEXA_MEMBER(productName), 0x3C02, "060E2B34.01010102.05200701.03010000"_key},
            {VEXA_MEMBER(productVersion), 0x3C03, "060E2B34.01010102.05200701.04000000"_key},
            {VEXA_MEMBER(versionString), 0x3C04, "060E2B34.01010102.05200701.05010000"_key},
            {VEXA_MEMBER(productUID), 0x3C05, "060E2B34.01010102.05200701.07000000"_key},
            {VEXA_MEMBER(modificationDate), 0x3C06, "060E2B34.01010102.07020110.02030000"_key},
            {VEXA_MEMBER(toolkitVersion), 0x3C07, "060E2B34.01010102.05200701.0A000000"_key},
            {VEXA_MEMBER(platform), 0x3C08, "060E2B34.01010102.05200701.06010000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
