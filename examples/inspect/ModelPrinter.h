#pragma once

#include <vexa/vexa.h>

/// Prints header metadata as a tree: each object in a line with its chief properties, its instance
/// UID and its position, what it owns below it, and its dark properties with their sizes.
class ModelPrinter : public VEXAMetadataHandler {
public:
    void startMetadata() override;
    void endMetadata() override;
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override;
    void xmlMetadata(const char* data, std::size_t size) override;
};
