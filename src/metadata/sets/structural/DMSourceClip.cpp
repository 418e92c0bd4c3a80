#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/DMSourceClip.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(DMSourceClip);

DMSourceClip::DMSourceClip() = default;

const metadata::SetClass& DMSourceClip::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<DMSourceClip, SourceClip>("060E2B34.02530101.0D010101.01014500"_key),
        {
            {VEXA_MEMBER(targetTrackIDs), 0x6103, "060E2B34.01010105.01070106.00000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
