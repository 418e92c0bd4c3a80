#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/TimecodeComponent.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(TimecodeComponent);

TimecodeComponent::TimecodeComponent() = default;

const metadata::SetClass& TimecodeComponent::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<TimecodeComponent, Segment>(
            "060E2B34.02530101.0D010101.01011400"_key),
        {
            {VEXA_MEMBER(startTimecode), 0x1501, "060E2B34.01010102.07020103.01050000"_key},
            {VEXA_MEMBER(roundedTimecodeBase), 0x1502, "060E2B34.01010102.04040101.02060000"_key},
            {VEXA_MEMBER(dropFrame), 0x1503, "060E2B34.01010101.04040101.05000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
