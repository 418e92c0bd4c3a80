#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/Segment.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(Segment);

Segment::Segment() = default;

const metadata::SetClass& Segment::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<Segment, Component>("060E2B34.02530101.0D010101.01010300"_key));
    return definition;
}

} // namespace vexa_toolkit
