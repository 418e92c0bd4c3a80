#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/DescriptiveMetadataObject.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(DescriptiveMetadataObject);

DescriptiveMetadataObject::DescriptiveMetadataObject() = default;

const metadata::SetClass& DescriptiveMetadataObject::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<DescriptiveMetadataObject, MetadataObject>(
            "060E2B34.02530101.0D010400.00000000"_key));
    return definition;
}

} // namespace vexa_toolkit
