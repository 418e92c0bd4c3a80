#pragma once

#include <vexa/metadata/MXFMetadataCoder.h>

inline namespace vexa_toolkit {

/// Writes a primer that begins with all tags that SMPTE 377M fixes: those of its structural sets,
/// its descriptors, and index table segments.
class VEXA_EXPORT MXFFormatMetadataCoder : public MXFMetadataCoder {
public:
    using MXFMetadataCoder::MXFMetadataCoder;
    ~MXFFormatMetadataCoder() override;

    /// Writes the given rows behind the fixed ones.
    void primer(const MXFPrimer& primer) override;
};

} // namespace vexa_toolkit
