#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/metadata/sets/descriptors/FileDescriptor.h>

inline namespace vexa_toolkit {

/// Data as essence (SMPTE 377M, GenericDataEssenceDescriptor).
class VEXA_EXPORT DataDescriptor : public FileDescriptor {
    VEXA_CONCRETE_SET(DataDescriptor);

    /// Label of the coding.
    VEXA_OPTIONAL(KLVKey, DataEssenceCoding, dataEssenceCoding);
};

VEXA_SET_FACTORY(DataDescriptor, FileDescriptor);

} // namespace vexa_toolkit
