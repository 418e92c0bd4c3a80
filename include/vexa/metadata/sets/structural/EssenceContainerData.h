#pragma once

#include <vexa/metadata/MetadataObject.h>
#include <vexa/metadata/UMID.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Where the file holds an essence container and its index table (SMPTE 377M,
/// EssenceContainerData).
class VEXA_EXPORT EssenceContainerData : public MetadataObject {
    VEXA_CONCRETE_SET(EssenceContainerData);

    /// The file package that describes the essence.
    VEXA_REQUIRED(UMID, LinkedPackageUID, linkedPackageUID);

    /// Stream of the index table segments; absent or 0 is none.
    VEXA_OPTIONAL(std::uint32_t, IndexSID, indexSID);

    /// Stream of the essence; 0 is none.
    VEXA_REQUIRED(std::uint32_t, BodySID, bodySID);

    /// Whether index table segments stand before the essence that they index. In later editions of
    /// the standard.
    VEXA_OPTIONAL(bool, PrecedingIndexTable, precedingIndexTable);

    /// Whether partitions hold one kind of content only. In later editions of the standard.
    VEXA_OPTIONAL(bool, SingularPartitionUsage, singularPartitionUsage);

    /// Whether index table segments stand behind the essence that they index. In later editions of
    /// the standard.
    VEXA_OPTIONAL(bool, FollowingIndexTable, followingIndexTable);

    /// Whether the index table leaves out edit units. In later editions of the standard.
    VEXA_OPTIONAL(bool, Sparse, sparse);
};

VEXA_SET_FACTORY(EssenceContainerData, MetadataObject);

} // namespace vexa_toolkit
