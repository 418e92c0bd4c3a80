#pragma once

#include "metadata/primed/MXFMetadataCoder.h"

inline namespace vexa_toolkit {

/// Writes a primer that begins with all tags that SMPTE 377M fixes.
class MXFFormatMetadataCoder : public MXFMetadataCoder {
public:
    using MXFMetadataCoder::MXFMetadataCoder;
    ~MXFFormatMetadataCoder() override;

    /// Writes the given rows behind the fixed ones.
    void primer(const MXFPrimer& primer) override;
};

} // namespace vexa_toolkit
