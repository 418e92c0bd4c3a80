#include "metadata/model/SetClass.h"
#include "metadata/primed/keys.h"

#include <vexa/metadata/sets/structural/Preface.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(Preface);

Preface::Preface() {
    setVersion(0x0102);
}

const metadata::SetClass& Preface::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<Preface, MetadataObject>(metadata::keys::preface),
        {
            {VEXA_MEMBER(lastModifiedDate), 0x3B02, "060E2B34.01010102.07020110.02040000"_key},
            {VEXA_MEMBER(version), 0x3B05, metadata::keys::prefaceVersion},
            {VEXA_MEMBER(objectModelVersion), 0x3B07, "060E2B34.01010102.03010201.04000000"_key},
            {VEXA_MEMBER(primaryPackage), 0x3B08, "060E2B34.01010104.06010104.01080000"_key},
            {VEXA_MEMBER(identifications), 0x3B06, "060E2B34.01010102.06010104.06040000"_key,
             metadata::RequiredVectorOf{"identification"}},
            {VEXA_MEMBER(contentStorage), 0x3B03, "060E2B34.01010102.06010104.02010000"_key},
            {VEXA_MEMBER(operationalPattern), 0x3B09, "060E2B34.01010105.01020203.00000000"_key},
            {VEXA_MEMBER(essenceContainers), 0x3B0A, "060E2B34.01010105.01020210.02010000"_key},
            {VEXA_MEMBER(dmSchemes), 0x3B0B, "060E2B34.01010105.01020210.02020000"_key},
            {VEXA_MEMBER(ripPresent), 0, "060E2B34.0101010E.04040503.00000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
