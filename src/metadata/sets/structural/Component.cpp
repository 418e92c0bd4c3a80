#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/Component.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(Component);

Component::Component() = default;

const metadata::SetClass& Component::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<Component, MetadataObject>("060E2B34.02530101.0D010101.01010200"_key),
        {
            {VEXA_MEMBER(dataDefinition), 0x0201, "060E2B34.01010102.04070100.00000000"_key},
            {VEXA_MEMBER(duration), 0x0202, "060E2B34.01010102.07020201.01030000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
