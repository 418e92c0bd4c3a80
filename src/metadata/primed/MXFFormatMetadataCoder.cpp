#include "metadata/primed/MXFFormatMetadataCoder.h"

#include "metadata/primed/standardPrimer.h"

inline namespace vexa_toolkit {

MXFFormatMetadataCoder::~MXFFormatMetadataCoder() = default;

void MXFFormatMetadataCoder::primer(const MXFPrimer& primer) {
    MXFPrimer all = metadata::standardPrimerTable();
    all.insert(all.end(), primer.begin(), primer.end());
    MXFMetadataCoder::primer(all);
}

} // namespace vexa_toolkit
