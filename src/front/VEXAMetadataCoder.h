#pragma once

#include "klv/KLVFiller.h"
#include "metadata/model/MXFMetadtaPrimerOverrideModelCoder.h"
#include "metadata/primed/MXFMetadataPlusIndexPrimerCoder.h"

#include <vexa/front/VEXAMetadataHandler.h>

#include <cstdint>
#include <memory>
#include <vector>

inline namespace vexa_toolkit {

/// Turns models and sidecar documents into the KLV events of header metadata: the opposite of
/// VEXAMetadataParser. A document is written where it is told; one of 16 MiB or more doesn't fit
/// its length, and fails in the writer, behind its key.
class VEXAMetadataCoder : public VEXAMetadataHandler {
public:
    /// Neither is owned.
    VEXAMetadataCoder(KLVHandler& output, MXFMetadataFactory& factory);
    VEXAMetadataCoder(const VEXAMetadataCoder&) = delete;
    VEXAMetadataCoder& operator=(const VEXAMetadataCoder&) = delete;
    ~VEXAMetadataCoder() override;

    void startMetadata() override;
    void endMetadata() override;
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override;
    void xmlMetadata(const char* data, std::size_t size) override;

    /// The primer to keep stays as it is.
    virtual void setFactory(MXFMetadataFactory& factory);

    /// Bytes that the sets behind the primer are aligned to.
    void setKAGSize(std::uint32_t kagSize);
    /// The tags that the models from now on keep, such as those of the file that they come from.
    void setPrimerOverride(const std::vector<MXFPrimerEntry>& primer);

private:
    std::vector<MXFPrimerEntry> primerOverride_;
    KLVFiller filler_;
    MXFMetadataPlusIndexPrimerCoder coder_;
    std::unique_ptr<MXFMetadtaPrimerOverrideModelCoder> modelCoder_;
};

} // namespace vexa_toolkit
