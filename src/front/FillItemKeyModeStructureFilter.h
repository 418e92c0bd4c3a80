#pragma once

#include "mxf/DullMXFStructureFilter.h"

#include <ios>

inline namespace vexa_toolkit {

/// Decides by the header partition which registry version the keys of fill items take on a stream
/// that has none yet (SMPTE 377M, KLV fill item).
class FillItemKeyModeStructureFilter : public DullMXFStructureFilter {
public:
    /// Neither is owned.
    FillItemKeyModeStructureFilter(MXFStructureHandler& next, std::ios_base& stream);
    ~FillItemKeyModeStructureFilter() override;

    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override;

private:
    std::ios_base* stream_;
};

} // namespace vexa_toolkit
