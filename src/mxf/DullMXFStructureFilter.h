#pragma once

#include <vexa/mxf/MXFStructureHandler.h>

inline namespace vexa_toolkit {

/// Passes every event on unchanged: a base for filters that care about a few events.
class DullMXFStructureFilter : public MXFStructureHandler {
public:
    /// The handler isn't owned.
    explicit DullMXFStructureFilter(MXFStructureHandler& next);
    ~DullMXFStructureFilter() override;

    void runIn(std::uint64_t length) override;
    void startStructure() override;
    void endStructure(bool aborted) override;
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override;
    void endPartition(const KLVKey& key) override;
    void randomIndex(const MXFRandomIndex& table) override;

private:
    MXFStructureHandler* next_;
};

} // namespace vexa_toolkit
