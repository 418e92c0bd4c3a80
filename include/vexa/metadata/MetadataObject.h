#pragma once

#include <vexa/metadata/MetadataRoot.h>
#include <vexa/metadata/MetadataRootFactory.h>

inline namespace vexa_toolkit {

/// The base of the sets of the structural model and its extensions (SMPTE 377M, InterchangeObject).
class VEXA_EXPORT MetadataObject : public MetadataRoot {
    VEXA_ABSTRACT_SET(MetadataObject);

    /// The `thisGenerationUID` of the Identification that was added when the set was made or last
    /// changed.
    VEXA_OPTIONAL(MXFUID, GenerationUID, generationUID);
};

VEXA_SET_FACTORY(MetadataObject, MetadataRoot);

} // namespace vexa_toolkit
