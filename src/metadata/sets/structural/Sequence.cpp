#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/Sequence.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(Sequence);

Sequence::Sequence() = default;

const metadata::SetClass& Sequence::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<Sequence, Segment>("060E2B34.02530101.0D010101.01010F00"_key),
        {
            {VEXA_MEMBER(components), 0x1001, "060E2B34.01010102.06010104.06090000"_key,
             metadata::RequiredVectorOf{"component"}},
        });
    return definition;
}

} // namespace vexa_toolkit
