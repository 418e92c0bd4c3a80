#include "metadata/sets/standardPrimer.h"

#include <vexa/metadata/MXFFormatMetadataCoder.h>

inline namespace vexa_toolkit {

MXFFormatMetadataCoder::~MXFFormatMetadataCoder() = default;

void MXFFormatMetadataCoder::primer(const MXFPrimer& primer) {
    MXFPrimer all = metadata::standardPrimer().rows();
    all.insert(all.end(), primer.begin(), primer.end());
    MXFMetadataCoder::primer(all);
}

} // namespace vexa_toolkit
