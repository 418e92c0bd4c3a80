#include "mxf/MXFStructureCoder.h"

#include "klv/berLength.h"
#include "klv/positionOf.h"
#include "klv/writeElements.h"
#include "mxf/keys.h"
#include "mxf/partitionPack.h"
#include "mxf/randomIndex.h"
#include "util/check.h"

#include <vexa/mxf/MXFPartitionKey.h>

inline namespace vexa_toolkit {

MXFStructureCoder::MXFStructureCoder(KLVMonitor& monitor, KLVStreamPadder& metadataPadder,
                                     KLVStreamPadder& indexPadder)
    : monitor_(&monitor), filler_(monitor), metadataPadder_(&metadataPadder),
      indexPadder_(&indexPadder) {}

MXFStructureCoder::~MXFStructureCoder() = default;

void MXFStructureCoder::runIn(std::uint64_t) {}

void MXFStructureCoder::startStructure() {
    partitions_.clear();
    monitor_->resetPosition();
    filler_.setLocator(&monitor_->getLocator());
    filler_.startStream(true);
}

void MXFStructureCoder::endStructure(bool aborted) {
    filler_.endStream(aborted);
}

/// The pack with the offsets that it gets at the present position.
MXFPartitionPack MXFStructureCoder::located(const KLVKey& key, const MXFPartitionPack& pack) const {
    MXFPartitionPack result = pack;
    result.previousPartition = partitions_.empty() ? 0 : partitions_.back().byteOffset;
    result.thisPartition = klvutil::positionOf(filler_.getLocator());
    const bool isFooter = MXFPartitionKey::isFooter(key);
    util::check(pack.footerPartition == 0 ||
                    (isFooter ? pack.footerPartition == result.thisPartition
                              : pack.footerPartition > result.thisPartition),
                "valid footer partition offset");
    if (isFooter) {
        result.footerPartition = result.thisPartition;
    }
    return result;
}

void MXFStructureCoder::startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                                       std::uint64_t packByteCount) {
    if (pack.kagSize != 0) {
        util::check(pack.headerByteCount % pack.kagSize == 0,
                    "header byte count is a multiple of KAG size");
        util::check(pack.indexByteCount % pack.kagSize == 0,
                    "index byte count is a multiple of KAG size");
    }
    const MXFPartitionPack written = located(key, pack);
    filler_.setFill(packByteCount != 0 ? KLVFiller::Pad : KLVFiller::Align, pack.kagSize,
                    packByteCount);
    metadataPadder_->setLocator(&monitor_->getLocator());
    metadataPadder_->setFill(KLVFiller::Pad, pack.kagSize, pack.headerByteCount);
    indexPadder_->setLocator(&monitor_->getLocator());
    indexPadder_->setFill(KLVFiller::Pad, pack.kagSize, pack.indexByteCount);
    partitions_.push_back({written.bodySID, written.thisPartition});

    filler_.startFilledItem();
    writePack(key, mxf::encodePartitionPack(written));
    filler_.endFilledItem();
}

void MXFStructureCoder::endPartition(const KLVKey&) {}

void MXFStructureCoder::randomIndex(const MXFRandomIndex&) {
    writePack(mxf::keys::randomIndex, mxf::encodeRandomIndex(partitions_, klvutil::defaultBERForm));
}

void MXFStructureCoder::writePack(const KLVKey& key, const std::vector<std::uint8_t>& value) {
    filler_.berLengthForm(klvutil::defaultBERForm);
    klvutil::writeFixedLengthPack(filler_, key, value);
}

} // namespace vexa_toolkit
