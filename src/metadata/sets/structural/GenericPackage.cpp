#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/GenericPackage.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(GenericPackage);

GenericPackage::GenericPackage() = default;

const metadata::SetClass& GenericPackage::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<GenericPackage, MetadataObject>(
            "060E2B34.02530101.0D010101.01013400"_key),
        {
            {VEXA_MEMBER(packageUID), 0x4401, "060E2B34.01010101.01011510.00000000"_key},
            {VEXA_MEMBER(name), 0x4402, "060E2B34.01010101.01030302.01000000"_key},
            {VEXA_MEMBER(packageCreationDate), 0x4405, "060E2B34.01010102.07020110.01030000"_key},
            {VEXA_MEMBER(packageModifiedDate), 0x4404, "060E2B34.01010102.07020110.02050000"_key},
            {VEXA_MEMBER(tracks), 0x4403, "060E2B34.01010102.06010104.06050000"_key,
             metadata::RequiredVectorOf{"track"}},
        });
    return definition;
}

} // namespace vexa_toolkit
