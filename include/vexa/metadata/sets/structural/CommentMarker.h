#pragma once

#include <vexa/metadata/sets/structural/Event.h>
#include <vexa/metadata/sets/structural/SourceReference.h>

inline namespace vexa_toolkit {

/// An event with a comment (SMPTE 377M, CommentMarker).
class VEXA_EXPORT CommentMarker : public Event {
    VEXA_CONCRETE_SET(CommentMarker);

    /// Leads to an annotation in another package.
    VEXA_OPTIONAL_STRONG(SourceReference, Annotation, annotation);
};

VEXA_SET_FACTORY(CommentMarker, Event);

} // namespace vexa_toolkit
