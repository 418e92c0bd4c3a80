#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/DMSegment.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(DMSegment);

DMSegment::DMSegment() = default;

const metadata::SetClass& DMSegment::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<DMSegment, CommentMarker>("060E2B34.02530101.0D010101.01014100"_key),
        {
            {VEXA_MEMBER(targetTrackIDs), 0x6102, "060E2B34.01010104.01070105.00000000"_key},
            {VEXA_MEMBER(dmFramework), 0x6101, "060E2B34.01010105.06010104.020C0000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
