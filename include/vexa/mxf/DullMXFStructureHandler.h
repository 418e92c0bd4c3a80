#pragma once

#include <vexa/mxf/MXFStructureHandler.h>

inline namespace vexa_toolkit {

/// Does nothing: a base for handlers that care about a few events.
class VEXA_EXPORT DullMXFStructureHandler : public MXFStructureHandler {
public:
    ~DullMXFStructureHandler() override;

    void runIn(std::uint64_t length) override;
    void startStructure() override;
    void endStructure(bool aborted) override;
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override;
    void endPartition(const KLVKey& key) override;
    void randomIndex(const MXFRandomIndex& table) override;
};

} // namespace vexa_toolkit
