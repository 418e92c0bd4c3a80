#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/GenericDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(GenericDescriptor);

GenericDescriptor::GenericDescriptor() = default;

const metadata::SetClass& GenericDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<GenericDescriptor, MetadataObject>(
            "060E2B34.02530101.0D010101.01012400"_key),
        {
            {VEXA_MEMBER(locators), 0x2F01, "060E2B34.01010102.06010104.06030000"_key,
             metadata::OptionalVectorOf{"locator"}},
            {VEXA_MEMBER(genericSubDescriptors), 0, "060E2B34.01010109.06010104.06100000"_key,
             metadata::OptionalVectorOf{"genericSubDescriptor"}},
        });
    return definition;
}

} // namespace vexa_toolkit
