#pragma once

#include <vexa/metadata/sets/ModelFactories.h>

/// The set classes of header metadata that this library knows.
class VEXAMetadataFactory : public MXFMetadataModelFactoryList {
public:
    VEXAMetadataFactory();
    ~VEXAMetadataFactory() override;
};
