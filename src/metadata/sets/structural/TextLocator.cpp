#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/TextLocator.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(TextLocator);

TextLocator::TextLocator() = default;

const metadata::SetClass& TextLocator::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<TextLocator, GenericLocator>(
            "060E2B34.02530101.0D010101.01013300"_key),
        {
            {VEXA_MEMBER(locatorName), 0x4101, "060E2B34.01010102.01040102.01000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
