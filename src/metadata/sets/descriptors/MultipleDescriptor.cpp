#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/MultipleDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(MultipleDescriptor);

MultipleDescriptor::MultipleDescriptor() = default;

const metadata::SetClass& MultipleDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<MultipleDescriptor, FileDescriptor>(
            "060E2B34.02530101.0D010101.01014400"_key),
        {
            {VEXA_MEMBER(subDescriptors), 0x3F01, "060E2B34.01010104.06010104.060B0000"_key,
             metadata::RequiredVectorOf{"subDescriptor"}},
        });
    return definition;
}

} // namespace vexa_toolkit
