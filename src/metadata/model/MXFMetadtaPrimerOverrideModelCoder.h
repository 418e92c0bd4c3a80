#pragma once

#include "metadata/model/MXFMetadataModelCoder.h"

inline namespace vexa_toolkit {

/// Keeps the tags of a primer that is there already, so that a model that is coded again keeps the
/// tags of its file. A key whose tag that primer gives to another key gets a dynamic tag.
class MXFMetadtaPrimerOverrideModelCoder : public MXFMetadataModelCoder {
public:
    /// The primer is the caller's, and may change between models.
    MXFMetadtaPrimerOverrideModelCoder(MXFMetadataHandler& handler, MXFMetadataFactory& factory,
                                       const MXFPrimer& primer);
    MXFMetadtaPrimerOverrideModelCoder(MXFMetadataHandler& handler, MXFMetadataFactory& factory,
                                       MXFPrimer&& primer) = delete;
    ~MXFMetadtaPrimerOverrideModelCoder() override;

    MXFPrimer allocateDynamicTags(const std::map<KLVKey, std::uint16_t>& primer) override;

private:
    const MXFPrimer& fixed_;
};

} // namespace vexa_toolkit
