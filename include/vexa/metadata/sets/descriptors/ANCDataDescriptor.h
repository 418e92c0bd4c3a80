#pragma once

#include <vexa/metadata/sets/descriptors/DataDescriptor.h>

inline namespace vexa_toolkit {

/// Ancillary data packets as essence (SMPTE 436M, ANCDataDescriptor).
class VEXA_EXPORT ANCDataDescriptor : public DataDescriptor {
    VEXA_CONCRETE_SET(ANCDataDescriptor);
};

VEXA_SET_FACTORY(ANCDataDescriptor, DataDescriptor);

} // namespace vexa_toolkit
