#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/SourceReference.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(SourceReference);

SourceReference::SourceReference() = default;

const metadata::SetClass& SourceReference::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<SourceReference, Segment>("060E2B34.02530101.0D010101.01011000"_key),
        {
            {VEXA_MEMBER(sourcePackageID), 0x1101, "060E2B34.01010102.06010103.01000000"_key},
            {VEXA_MEMBER(sourceTrackID), 0x1102, "060E2B34.01010102.06010103.02000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
