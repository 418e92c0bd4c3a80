#pragma once

#include "rewrap/EssenceRelay.h"
#include "rewrap/EssenceShift.h"

#include <vexa/vexa.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// What the new file will look like, learned by a run that writes nothing.
struct Layout {
    /// Its offset; 0 if there is none.
    std::uint64_t footer = 0;
    /// By bodySID.
    std::map<std::uint32_t, EssenceShift> essence;
};

/// Plays the structure, the header metadata and the index tables that a reader tells into a writer,
/// with the sizes and positions that the writer's coding gives. A partition is held back until all
/// its header metadata and index tables are there, since its pack announces their sizes.
class Relay : public DullMXFStructureHandler, public VEXAMetadataHandler, public MXFIndexHandler {
public:
    /// `known` is the layout that an earlier run learned, or null in a run that learns. Nothing is
    /// owned.
    Relay(VEXAWriter& writer, EssenceRelay& essence, const Layout* known);

    void runIn(std::uint64_t length) override { runIn_ = length; }
    void startStructure() override;
    void endStructure(bool aborted) override;
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override;
    void endPartition(const KLVKey& key) override;
    void randomIndex(const MXFRandomIndex& table) override;

    void startMetadata() override {}
    void endMetadata() override {}
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override;
    void xmlMetadata(const char* data, std::size_t size) override;

    void startIndexTable() override {}
    void endIndexTable() override {}
    void indexTableSegment(const MXFIndexTableSegment& segment) override;

private:
    /// Writes what was held back.
    void begin();
    void tellMetadata(VEXAMetadataHandler& handler) const;
    void tellIndex(MXFIndexHandler& handler) const;

    VEXAWriter& writer_;
    EssenceRelay& essence_;
    const Layout* known_;
    std::uint64_t runIn_ = 0;

    bool isHeld_ = false;
    KLVKey key_;
    MXFPartitionPack pack_;
    std::uint64_t packByteCount_ = 0;
    std::vector<boost::shared_ptr<MetadataRoot>> roots_;
    std::vector<std::string> documents_;
    std::vector<MXFIndexTableSegment> segments_;
};
