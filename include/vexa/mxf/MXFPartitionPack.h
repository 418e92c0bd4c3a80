#pragma once

#include <vexa/klv/KLVKey.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// The value of a partition pack (SMPTE 377M, partition pack).
///
/// Partition offsets count from the byte behind the run-in.
struct MXFPartitionPack {
    std::uint16_t majorVersion = 1;
    std::uint16_t minorVersion = 2;
    /// KLV alignment grid in bytes; 0 is unknown, 1 is none.
    std::uint32_t kagSize = 0;
    /// Offset of this partition.
    std::uint64_t thisPartition = 0;
    /// Offset of the one before it; 0 in the first.
    std::uint64_t previousPartition = 0;
    /// Offset of the footer partition; 0 where it isn't known, or there is none.
    std::uint64_t footerPartition = 0;
    /// Bytes of header metadata with their fill; 0 is none.
    std::uint64_t headerByteCount = 0;
    /// Bytes of index table segments with their fill; 0 is none.
    std::uint64_t indexByteCount = 0;
    /// Stream of the index table segments; 0 is none.
    std::uint32_t indexSID = 0;
    /// Place of this partition's first essence byte in its essence stream.
    std::uint64_t bodyOffset = 0;
    /// Stream of the essence; 0 is none.
    std::uint32_t bodySID = 0;
    /// The label of the file's operational pattern.
    KLVKey operationalPattern;
    /// The labels of the essence containers that the file uses.
    std::vector<KLVKey> essenceContainers;
};

} // namespace vexa_toolkit
