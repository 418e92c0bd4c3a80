#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/CommentMarker.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(CommentMarker);

CommentMarker::CommentMarker() = default;

const metadata::SetClass& CommentMarker::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<CommentMarker, Event>("060E2B34.02530101.0D010101.01010800"_key),
        {
            {VEXA_MEMBER(annotation), 0x0901, "060E2B34.01010102.06010104.020A0000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
