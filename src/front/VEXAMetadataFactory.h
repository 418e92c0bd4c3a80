#pragma once

#include <vexa/metadata/sets/ModelFactories.h>

inline namespace vexa_toolkit {

/// The set classes of header metadata that this library knows.
class VEXAMetadataFactory : public MXFMetadataModelFactoryList {
public:
    VEXAMetadataFactory();
    ~VEXAMetadataFactory() override;
};

} // namespace vexa_toolkit
