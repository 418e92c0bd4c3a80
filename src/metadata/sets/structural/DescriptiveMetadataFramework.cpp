#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/DescriptiveMetadataFramework.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(DescriptiveMetadataFramework);

DescriptiveMetadataFramework::DescriptiveMetadataFramework() = default;

const metadata::SetClass& DescriptiveMetadataFramework::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<DescriptiveMetadataFramework, MetadataObject>(
            "060E2B34.02530101.0D010401.00000000"_key));
    return definition;
}

} // namespace vexa_toolkit
