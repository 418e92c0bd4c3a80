#pragma once

#include <vexa/gc/MXFGCSystemHandler.h>
#include <vexa/gc/system/MXFSDTICPSystemHandler.h>
#include <vexa/util/Bytes.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Codes the parts of SDTI-CP system items (SMPTE 326M, 385M) as system elements, each as it comes.
/// What the next handler doesn't want is left out.
class MXFSDTICPSystemCoder : public MXFSDTICPSystemHandler {
public:
    /// The handler is not owned.
    explicit MXFSDTICPSystemCoder(MXFGCSystemHandler& next);
    ~MXFSDTICPSystemCoder() override;

    void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) override;
    void packageMetadata(const Items& items) override;
    void pictureMetadata(const Items& items) override;
    void soundMetadata(const Items& items) override;
    void dataMetadata(const Items& items) override;
    void controlData(std::uint32_t tag, const util::Bytes& value) override;

private:
    MXFGCSystemHandler& next_;
};

} // namespace vexa_toolkit
