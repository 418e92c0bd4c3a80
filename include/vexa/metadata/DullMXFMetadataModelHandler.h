#pragma once

#include <vexa/metadata/MXFMetadataModelHandler.h>

inline namespace vexa_toolkit {

/// Does nothing: a base for handlers that care about a few events.
class VEXA_EXPORT DullMXFMetadataModelHandler : public MXFMetadataModelHandler {
public:
    ~DullMXFMetadataModelHandler() override;

    void startMetadata() override;
    void endMetadata() override;
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override;
};

} // namespace vexa_toolkit
