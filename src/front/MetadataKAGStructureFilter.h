#pragma once

#include "front/VEXAMetadataCoder.h"
#include "mxf/DullMXFStructureFilter.h"

inline namespace vexa_toolkit {

/// Aligns header metadata to the grid of the partition that it stands in.
class MetadataKAGStructureFilter : public DullMXFStructureFilter {
public:
    /// Neither is owned.
    MetadataKAGStructureFilter(MXFStructureHandler& next, VEXAMetadataCoder& coder)
        : DullMXFStructureFilter(next), coder_(&coder) {}

    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override {
        DullMXFStructureFilter::startPartition(key, pack, packByteCount);
        coder_->setKAGSize(pack.kagSize);
    }

private:
    VEXAMetadataCoder* coder_;
};

} // namespace vexa_toolkit
