#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/SourceClip.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(SourceClip);

SourceClip::SourceClip() = default;

const metadata::SetClass& SourceClip::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<SourceClip, SourceReference>(
            "060E2B34.02530101.0D010101.01011100"_key),
        {
            {VEXA_MEMBER(startPosition), 0x1201, "060E2B34.01010102.07020103.01040000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
