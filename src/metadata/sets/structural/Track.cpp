#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/Track.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(Track);

Track::Track() = default;

const metadata::SetClass& Track::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<Track, MetadataObject>("060E2B34.02530101.0D010101.01013800"_key),
        {
            {VEXA_MEMBER(trackID), 0x4801, "060E2B34.01010102.01070101.00000000"_key},
            {VEXA_MEMBER(trackNumber), 0x4804, "060E2B34.01010102.01040103.00000000"_key},
            {VEXA_MEMBER(trackName), 0x4802, "060E2B34.01010102.01070102.01000000"_key},
            {VEXA_MEMBER(segment), 0x4803, "060E2B34.01010102.06010104.02040000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
