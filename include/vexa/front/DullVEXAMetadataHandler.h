#pragma once

#include <vexa/front/VEXAMetadataHandler.h>

inline namespace vexa_toolkit {

/// Does nothing: a base for handlers that care about a few events.
class VEXA_EXPORT DullVEXAMetadataHandler : public VEXAMetadataHandler {
public:
    ~DullVEXAMetadataHandler() override;

    void startMetadata() override;
    void endMetadata() override;
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override;
    void xmlMetadata(const char* data, std::size_t size) override;
};

} // namespace vexa_toolkit
