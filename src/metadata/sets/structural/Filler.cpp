#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/Filler.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(Filler);

Filler::Filler() = default;

const metadata::SetClass& Filler::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<Filler, Component>("060E2B34.02530101.0D010101.01010900"_key));
    return definition;
}

} // namespace vexa_toolkit
