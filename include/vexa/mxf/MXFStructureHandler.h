#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>
#include <vexa/mxf/MXFPartitionPack.h>
#include <vexa/mxf/MXFRandomIndex.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// The events of a file's structure (SMPTE 377M).
///
/// Events: `runIn? startStructure (startPartition endPartition)* randomIndex? endStructure`.
class VEXA_EXPORT MXFStructureHandler {
public:
    virtual ~MXFStructureHandler();

    /// The file has a run-in of `length` bytes. A sequential reader leaves it out when there is
    /// none.
    virtual void runIn(std::uint64_t length) = 0;

    virtual void startStructure() = 0;

    /// `aborted` says that the parse stopped early or failed.
    virtual void endStructure(bool aborted) = 0;

    /// `packByteCount` runs from the first byte of the pack's key to the first byte behind the
    /// pack and the one fill item that may follow it.
    virtual void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                                std::uint64_t packByteCount) = 0;

    virtual void endPartition(const KLVKey& key) = 0;

    /// The random index pack; `table` is never empty.
    virtual void randomIndex(const MXFRandomIndex& table) = 0;
};

} // namespace vexa_toolkit
