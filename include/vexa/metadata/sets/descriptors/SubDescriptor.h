#pragma once

#include <vexa/metadata/MetadataObject.h>

inline namespace vexa_toolkit {

/// The base of what adds to a descriptor, by `genericSubDescriptors` (SMPTE 377M, SubDescriptor;
/// not in its first edition).
class VEXA_EXPORT SubDescriptor : public MetadataObject {
    VEXA_ABSTRACT_SET(SubDescriptor);
};

VEXA_SET_FACTORY(SubDescriptor, MetadataObject);

} // namespace vexa_toolkit
