#pragma once

#include <vexa/metadata/sets/structural/Component.h>

inline namespace vexa_toolkit {

/// A stretch of a track with nothing in it (SMPTE 377M, Filler).
class VEXA_EXPORT Filler : public Component {
    VEXA_CONCRETE_SET(Filler);
};

VEXA_SET_FACTORY(Filler, Component);

} // namespace vexa_toolkit
