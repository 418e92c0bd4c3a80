#pragma once

#include <vexa/metadata/MetadataObject.h>

inline namespace vexa_toolkit {

/// The top set of a description: the base of the frameworks of all descriptive metadata schemes
/// (SMPTE 377M, descriptive metadata).
class VEXA_EXPORT DescriptiveMetadataFramework : public MetadataObject {
    VEXA_ABSTRACT_SET(DescriptiveMetadataFramework);
};

VEXA_SET_FACTORY(DescriptiveMetadataFramework, MetadataObject);

} // namespace vexa_toolkit
