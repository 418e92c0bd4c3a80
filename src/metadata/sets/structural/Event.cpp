#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/Event.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(Event);

Event::Event() = default;

const metadata::SetClass& Event::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<Event, Segment>("060E2B34.02530101.0D010101.01010600"_key),
        {
            {VEXA_MEMBER(position), 0x0601, "060E2B34.01010102.07020103.03030000"_key},
            {VEXA_MEMBER(comment), 0x0602, "060E2B34.01010102.05300404.01000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
