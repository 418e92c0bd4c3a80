#pragma once

#include <vexa/metadata/MetadataObject.h>

inline namespace vexa_toolkit {

/// The base of the other sets of descriptive metadata schemes (SMPTE 377M, descriptive metadata).
class VEXA_EXPORT DescriptiveMetadataObject : public MetadataObject {
    VEXA_ABSTRACT_SET(DescriptiveMetadataObject);
};

VEXA_SET_FACTORY(DescriptiveMetadataObject, MetadataObject);

} // namespace vexa_toolkit
