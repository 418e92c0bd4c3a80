#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/VBIDataDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(VBIDataDescriptor);

VBIDataDescriptor::VBIDataDescriptor() = default;

const metadata::SetClass& VBIDataDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<VBIDataDescriptor, DataDescriptor>(
            "060E2B34.02530101.0D010101.01015B00"_key));
    return definition;
}

} // namespace vexa_toolkit
