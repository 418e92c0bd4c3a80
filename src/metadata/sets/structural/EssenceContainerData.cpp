#include "metadata/model/SetClass.h"
#include "metadata/primed/indexProperties.h"

#include <vexa/metadata/sets/structural/EssenceContainerData.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(EssenceContainerData);

EssenceContainerData::EssenceContainerData() = default;

const metadata::SetClass& EssenceContainerData::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<EssenceContainerData, MetadataObject>(
            "060E2B34.02530101.0D010101.01012300"_key),
        {
            {VEXA_MEMBER(linkedPackageUID), 0x2701, "060E2B34.01010102.06010106.01000000"_key},
            {VEXA_MEMBER(indexSID), metadata::indexProperties::indexSID},
            {VEXA_MEMBER(bodySID), metadata::indexProperties::bodySID},
            {VEXA_MEMBER(precedingIndexTable), 0, "060E2B34.0101010E.04040504.00000000"_key},
            {VEXA_MEMBER(singularPartitionUsage), 0, "060E2B34.0101010E.04060207.00000000"_key},
            {VEXA_MEMBER(followingIndexTable), 0, "060E2B34.0101010E.04040505.00000000"_key},
            {VEXA_MEMBER(sparse), 0, "060E2B34.0101010E.04040506.00000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
