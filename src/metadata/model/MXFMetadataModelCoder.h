#pragma once

#include <vexa/metadata/MXFMetadataFactory.h>
#include <vexa/metadata/MXFMetadataHandler.h>
#include <vexa/metadata/MXFMetadataModelHandler.h>

#include <cstdint>
#include <map>
#include <vector>

inline namespace vexa_toolkit {

/// Turns a model into a primer, in the order of the tags, and sets: each object is followed by all
/// that it owns. It is the opposite of MXFMetadataModelParser.
class MXFMetadataModelCoder : public MXFMetadataModelHandler {
public:
    /// Neither is owned.
    MXFMetadataModelCoder(MXFMetadataHandler& handler, MXFMetadataFactory& factory);
    ~MXFMetadataModelCoder() override;

    void startMetadata() override;
    void endMetadata() override;
    /// The model is one object without an owner, and all that it owns. The checks are "valid
    /// model", "can handle object", "object owns what it refers to", "consistent primer entry",
    /// "single primed set order", "dynamic tag available" and those of the factory.
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override;

    /// The primer for keys of which those with tag 0 get a free one from 8000 hexadecimal on, in
    /// the order of the keys.
    virtual MXFPrimer allocateDynamicTags(const std::map<KLVKey, std::uint16_t>& primer);

private:
    MXFMetadataHandler& handler_;
    MXFMetadataFactory& factory_;
};

} // namespace vexa_toolkit
