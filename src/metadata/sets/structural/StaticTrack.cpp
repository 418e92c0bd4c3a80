#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/StaticTrack.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(StaticTrack);

StaticTrack::StaticTrack() = default;

const metadata::SetClass& StaticTrack::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<StaticTrack, Track>("060E2B34.02530101.0D010101.01013A00"_key));
    return definition;
}

} // namespace vexa_toolkit
