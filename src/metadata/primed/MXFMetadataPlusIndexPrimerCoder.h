#pragma once

#include <vexa/metadata/MXFMetadataCoder.h>

inline namespace vexa_toolkit {

/// Writes a primer that covers the index table segments of the same partition, too.
class MXFMetadataPlusIndexPrimerCoder : public MXFMetadataCoder {
public:
    using MXFMetadataCoder::MXFMetadataCoder;
    ~MXFMetadataPlusIndexPrimerCoder() override;

    /// Writes the given rows, and behind them those of index properties that are not among them.
    void primer(const MXFPrimer& primer) override;
};

} // namespace vexa_toolkit
