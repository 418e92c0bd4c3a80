#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/GenericLocator.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(GenericLocator);

GenericLocator::GenericLocator() = default;

const metadata::SetClass& GenericLocator::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<GenericLocator, MetadataObject>(
            "060E2B34.02530101.0D010101.01013100"_key));
    return definition;
}

} // namespace vexa_toolkit
