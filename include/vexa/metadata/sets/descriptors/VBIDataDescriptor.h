#pragma once

#include <vexa/metadata/sets/descriptors/DataDescriptor.h>

inline namespace vexa_toolkit {

/// Lines of the vertical blanking interval as essence (SMPTE 436M, VBIDataDescriptor).
class VEXA_EXPORT VBIDataDescriptor : public DataDescriptor {
    VEXA_CONCRETE_SET(VBIDataDescriptor);
};

VEXA_SET_FACTORY(VBIDataDescriptor, DataDescriptor);

} // namespace vexa_toolkit
