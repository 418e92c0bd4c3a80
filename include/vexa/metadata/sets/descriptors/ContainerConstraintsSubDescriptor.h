#pragma once

#include <vexa/metadata/sets/descriptors/SubDescriptor.h>

inline namespace vexa_toolkit {

/// Marks a generic container that keeps to the constraints (SMPTE 379-2,
/// ContainerConstraintsSubDescriptor).
class VEXA_EXPORT ContainerConstraintsSubDescriptor : public SubDescriptor {
    VEXA_CONCRETE_SET(ContainerConstraintsSubDescriptor);
};

VEXA_SET_FACTORY(ContainerConstraintsSubDescriptor, SubDescriptor);

} // namespace vexa_toolkit
