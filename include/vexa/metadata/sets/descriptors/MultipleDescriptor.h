#pragma once

#include <vexa/metadata/sets/descriptors/FileDescriptor.h>

inline namespace vexa_toolkit {

/// Several kinds of essence in one container (SMPTE 377M, MultipleDescriptor).
class VEXA_EXPORT MultipleDescriptor : public FileDescriptor {
    VEXA_CONCRETE_SET(MultipleDescriptor);

    /// One for each kind or channel, such as the picture and each sound track. SubDescriptorUIDs in
    /// the standard.
    VEXA_STRONG_VECTOR(FileDescriptor, SubDescriptor, SubDescriptors, subDescriptors);
};

VEXA_SET_FACTORY(MultipleDescriptor, FileDescriptor);

} // namespace vexa_toolkit
