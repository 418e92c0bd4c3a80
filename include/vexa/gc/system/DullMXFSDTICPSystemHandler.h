#pragma once

#include <vexa/gc/system/MXFSDTICPSystemHandler.h>

inline namespace vexa_toolkit {

/// Does nothing: a base for handlers that care about a few events.
class VEXA_EXPORT DullMXFSDTICPSystemHandler : public MXFSDTICPSystemHandler {
public:
    ~DullMXFSDTICPSystemHandler() override;

    void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) override;
    void packageMetadata(const Items& items) override;
    void pictureMetadata(const Items& items) override;
    void soundMetadata(const Items& items) override;
    void dataMetadata(const Items& items) override;
    void controlData(std::uint32_t tag, const std::vector<std::uint8_t>& value) override;
};

} // namespace vexa_toolkit
