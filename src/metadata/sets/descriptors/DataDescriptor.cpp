#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/DataDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(DataDescriptor);

DataDescriptor::DataDescriptor() = default;

const metadata::SetClass& DataDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<DataDescriptor, FileDescriptor>(
            "060E2B34.02530101.0D010101.01014300"_key),
        {
            {VEXA_MEMBER(dataEssenceCoding), 0x3E01, "060E2B34.01010103.04030302.00000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
