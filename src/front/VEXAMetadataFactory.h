#pragma once

#include <vexa/metadata/sets/ModelFactories.h>

/// All set classes of header metadata.
class VEXAMetadataFactory : public MXFMetadataModelFactoryList {
public:
    VEXAMetadataFactory();
    ~VEXAMetadataFactory() override;
};
