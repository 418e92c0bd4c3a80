#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/ANCDataDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(ANCDataDescriptor);

ANCDataDescriptor::ANCDataDescriptor() = default;

const metadata::SetClass& ANCDataDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<ANCDataDescriptor, DataDescriptor>(
            "060E2B34.02530101.0D010101.01015C00"_key));
    return definition;
}

} // namespace vexa_toolkit
