#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/ContainerConstraintsSubDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(ContainerConstraintsSubDescriptor);

ContainerConstraintsSubDescriptor::ContainerConstraintsSubDescriptor() = default;

const metadata::SetClass& ContainerConstraintsSubDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<ContainerConstraintsSubDescriptor, SubDescriptor>(
            "060E2B34.02530101.0D010101.01016700"_key));
    return definition;
}

} // namespace vexa_toolkit
