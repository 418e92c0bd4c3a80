#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/SubDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(SubDescriptor);

SubDescriptor::SubDescriptor() = default;

const metadata::SetClass& SubDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(metadata::abstractSet<SubDescriptor, MetadataObject>(
        "060E2B34.02530101.0D010101.01015900"_key));
    return definition;
}

} // namespace vexa_toolkit
