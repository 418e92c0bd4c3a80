#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/EventTrack.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(EventTrack);

EventTrack::EventTrack() = default;

const metadata::SetClass& EventTrack::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<EventTrack, Track>("060E2B34.02530101.0D010101.01013900"_key),
        {
            {VEXA_MEMBER(editRate), 0x4901, "060E2B34.01010102.05300402.00000000"_key},
            {VEXA_MEMBER(origin), 0x4902, "060E2B34.01010105.07020103.010B0000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
