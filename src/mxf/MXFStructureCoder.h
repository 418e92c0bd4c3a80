#pragma once

#include "klv/KLVFiller.h"
#include "klv/KLVMonitor.h"
#include "klv/KLVStreamPadder.h"

#include <vexa/mxf/MXFStructureHandler.h>

inline namespace vexa_toolkit {

/// Writes partition packs and the random index pack (SMPTE 377M), with what only the writer knows:
/// where partitions lie. It tells the padders of the metadata and index sections how long the next
/// section must get.
///
/// A wrong caller is util::assertion_failure. One structure after another may be written, each from
/// position 0.
class MXFStructureCoder : public MXFStructureHandler {
public:
    /// Through the monitor goes every byte of the file. None is owned.
    MXFStructureCoder(KLVMonitor& monitor, KLVStreamPadder& metadataPadder,
                      KLVStreamPadder& indexPadder);
    MXFStructureCoder(const MXFStructureCoder&) = delete;
    MXFStructureCoder& operator=(const MXFStructureCoder&) = delete;
    ~MXFStructureCoder() override;

    /// Nothing is written of a run-in.
    void runIn(std::uint64_t length) override;
    void startStructure() override;
    void endStructure(bool aborted) override;
    /// Pack and fill take `packByteCount` bytes, or 0 for as many as the alignment grid asks for.
    /// thisPartition and previousPartition are computed, and footerPartition of a footer. The
    /// checks are "header byte count is a multiple of KAG size", "index byte count is a multiple of
    /// KAG size", "valid footer partition offset" and those of KLVFiller.
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override;
    void endPartition(const KLVKey& key) override;
    /// Writes the partitions as they were written, whatever the table says.
    void randomIndex(const MXFRandomIndex& table) override;

private:
    MXFPartitionPack located(const KLVKey& key, const MXFPartitionPack& pack) const;
    void writePack(const KLVKey& key, const std::vector<std::uint8_t>& value);

    KLVMonitor* monitor_;
    KLVFiller filler_;
    KLVStreamPadder* metadataPadder_;
    KLVStreamPadder* indexPadder_;
    MXFRandomIndex partitions_;
};

} // namespace vexa_toolkit
