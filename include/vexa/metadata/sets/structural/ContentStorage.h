#pragma once

#include <vexa/metadata/MetadataObject.h>
#include <vexa/metadata/sets/structural/EssenceContainerData.h>
#include <vexa/metadata/sets/structural/GenericPackage.h>

inline namespace vexa_toolkit {

/// The packages of a file and the essence that it holds (SMPTE 377M, ContentStorage).
class VEXA_EXPORT ContentStorage : public MetadataObject {
    VEXA_CONCRETE_SET(ContentStorage);

    /// The material packages, and the source packages that they lead to.
    VEXA_STRONG_VECTOR(GenericPackage, Package, Packages, packages);

    /// One for each essence container that is stored in the file.
    VEXA_STRONG_VECTOR(EssenceContainerData, EssenceContainerData, EssenceContainerData,
                       essenceContainerData);
};

class VEXA_EXPORT ContentStorageFactory : public MetadataObjectFactory {
public:
    /// With `packagesLast`, the essence container data are coded before the packages, not after
    /// them.
    explicit ContentStorageFactory(bool packagesLast);
    ~ContentStorageFactory() override;
};

} // namespace vexa_toolkit
