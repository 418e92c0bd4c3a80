#pragma once

#include <vexa/metadata/sets/descriptors/GenericDescriptor.h>
#include <vexa/metadata/sets/structural/GenericPackage.h>

inline namespace vexa_toolkit {

/// Where material comes from: an essence container, described by a file descriptor (a file
/// package), or a tape or film (SMPTE 377M, SourcePackage).
class VEXA_EXPORT SourcePackage : public GenericPackage {
    VEXA_CONCRETE_SET(SourcePackage);

    /// What the essence is like.
    VEXA_REQUIRED_STRONG(GenericDescriptor, Descriptor, descriptor);
};

class VEXA_EXPORT SourcePackageFactory : public GenericPackageFactory {
public:
    /// With `tracksLast`, the descriptor is coded before the tracks, not after them.
    explicit SourcePackageFactory(bool tracksLast);
    ~SourcePackageFactory() override;
};

} // namespace vexa_toolkit
