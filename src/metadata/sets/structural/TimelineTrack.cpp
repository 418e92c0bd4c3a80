#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/TimelineTrack.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(TimelineTrack);

TimelineTrack::TimelineTrack() = default;

const metadata::SetClass& TimelineTrack::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<TimelineTrack, Track>("060E2B34.02530101.0D010101.01013B00"_key),
        {
            {VEXA_MEMBER(editRate), 0x4B01, "060E2B34.01010102.05300405.00000000"_key},
            {VEXA_MEMBER(origin), 0x4B02, "060E2B34.01010102.07020103.01030000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
