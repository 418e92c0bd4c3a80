#include "metadata/primed/MXFMetadataPlusIndexPrimerCoder.h"

#include "metadata/primed/indexProperties.h"
#include "metadata/primed/primerLookup.h"

inline namespace vexa_toolkit {

MXFMetadataPlusIndexPrimerCoder::~MXFMetadataPlusIndexPrimerCoder() = default;

void MXFMetadataPlusIndexPrimerCoder::primer(const MXFPrimer& primer) {
    const metadata::KeyToTag given(primer);
    MXFPrimer all = primer;
    for (const MXFPrimerEntry& entry : metadata::indexProperties::primerRows) {
        if (!given.find(entry.key)) {
            all.push_back(entry);
        }
    }
    MXFMetadataCoder::primer(all);
}

} // namespace vexa_toolkit
