#pragma once

#include <vexa/metadata/sets/structural/Component.h>

inline namespace vexa_toolkit {

/// A component that stands on its own, such as a whole track's timeline (SMPTE 377M, Segment).
class VEXA_EXPORT Segment : public Component {
    VEXA_ABSTRACT_SET(Segment);
};

VEXA_SET_FACTORY(Segment, Component);

} // namespace vexa_toolkit
