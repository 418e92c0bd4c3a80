#pragma once

#include <vexa/metadata/sets/structural/Component.h>
#include <vexa/metadata/sets/structural/Segment.h>

inline namespace vexa_toolkit {

/// Components, on a timeline track one behind the other; its duration is then the sum of theirs
/// (SMPTE 377M, Sequence).
class VEXA_EXPORT Sequence : public Segment {
    VEXA_CONCRETE_SET(Sequence);

    /// In the order of time, of the sequence's own data definition. StructuralComponents in the
    /// standard.
    VEXA_STRONG_VECTOR(Component, Component, Components, components);
};

VEXA_SET_FACTORY(Sequence, Segment);

} // namespace vexa_toolkit
