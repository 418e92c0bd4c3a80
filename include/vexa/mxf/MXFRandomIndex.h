#pragma once

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// One partition in a random index pack.
struct MXFRandomIndexEntry {
    std::uint32_t bodySID = 0;
    /// From the byte behind the run-in to the partition pack's key.
    std::uint64_t byteOffset = 0;
};

constexpr bool operator==(const MXFRandomIndexEntry& a, const MXFRandomIndexEntry& b) {
    return a.bodySID == b.bodySID && a.byteOffset == b.byteOffset;
}

constexpr bool operator!=(const MXFRandomIndexEntry& a, const MXFRandomIndexEntry& b) {
    return !(a == b);
}

/// The random index pack (SMPTE 377M): the partitions of a file, in file order.
using MXFRandomIndex = std::vector<MXFRandomIndexEntry>;

} // namespace vexa_toolkit
