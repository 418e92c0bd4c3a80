#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of a file's structure (SMPTE 377M).
namespace mxf::faults {

using klvutil::ErrorCode;
using klvutil::Fault;

// Where an element may stand.
constexpr Fault unexpectedIndividualItem{ErrorCode::UnexpectedElement,
                                         "unexpected individual item"};
constexpr Fault unexpectedLabel{ErrorCode::UnexpectedElement, "unexpected label"};
constexpr Fault unexpectedUniversalSet{ErrorCode::UnexpectedElement, "unexpected universal set"};
constexpr Fault unexpectedLocalSet{ErrorCode::UnexpectedElement, "unexpected local set"};
constexpr Fault unexpectedFixedLengthPack{ErrorCode::UnexpectedElement,
                                          "unexpected fixed length pack"};
constexpr Fault unexpectedVariableLengthPack{ErrorCode::UnexpectedElement,
                                             "unexpected variable length pack"};
constexpr Fault unexpectedWrapper{ErrorCode::UnexpectedElement, "unexpected wrapper"};
constexpr Fault adjacentFillItems{ErrorCode::AdjacentFillItems,
                                  "adjacent fill items should be concatenated"};

// Run-in.
constexpr Fault invalidRunIn{ErrorCode::InvalidRunIn, "invalid run-in"};
constexpr Fault generalizedPatternWithRunIn{ErrorCode::InvalidRunIn,
                                            "generalized operational pattern with run-in"};

// The order of partitions and random index.
constexpr Fault noWayToPartitions{
    ErrorCode::InvalidStructure,
    "missing random index or non-zero footerPartition in the header partition pack"};
constexpr Fault partitionAfterRandomIndex{ErrorCode::InvalidStructure, "unexpected partition"};
constexpr Fault unexpectedRandomIndex{ErrorCode::InvalidStructure, "unexpected random index"};
constexpr Fault missingHeader{ErrorCode::InvalidPartitionOrder, "missing header partition"};
constexpr Fault unexpectedHeader{ErrorCode::InvalidPartitionOrder, "unexpected header partition"};
constexpr Fault partitionAfterFooter{ErrorCode::InvalidPartitionOrder, "unexpected partition"};

// The random index.
constexpr Fault invalidRandomIndex{ErrorCode::InvalidRandomIndex, "invalid random index value"};
constexpr Fault incorrectRandomIndex{ErrorCode::InvalidRandomIndex, "incorrect random index value"};

// The partition pack.
constexpr Fault invalidPartition{ErrorCode::InvalidPartitionPack, "invalid partition value"};
constexpr Fault unalignedHeaderByteCount{ErrorCode::UnalignedHeaderByteCount,
                                         "headerByteCount is not a multiple of kagSize"};
constexpr Fault unalignedIndexByteCount{ErrorCode::UnalignedIndexByteCount,
                                        "indexByteCount is not a multiple of kagSize"};
constexpr Fault incorrectHeaderByteCount{ErrorCode::IncorrectByteCount,
                                         "incorrect headerByteCount"};
constexpr Fault incorrectIndexByteCount{ErrorCode::IncorrectByteCount, "incorrect indexByteCount"};
constexpr Fault incorrectThisPartition{ErrorCode::IncorrectThisPartition,
                                       "incorrect thisPartition"};
constexpr Fault incorrectPreviousPartition{ErrorCode::IncorrectPreviousPartition,
                                           "incorrect previousPartition"};
constexpr Fault incorrectFooterPartition{ErrorCode::IncorrectFooterPartition,
                                         "incorrect footerPartition"};
constexpr Fault incorrectPreviousFooter{ErrorCode::IncorrectFooterPartition,
                                        "incorrect previous footerPartition"};
constexpr Fault inconsistentFooter{ErrorCode::IncorrectFooterPartition,
                                   "inconsistent footerPartition"};
constexpr Fault inconsistentIndexSID{ErrorCode::InconsistentIndexSID,
                                     "inconsistent indexSID and indexByteCount"};
constexpr Fault inconsistentBodySID{ErrorCode::InconsistentBodySID,
                                    "inconsistent bodySID and bodyOffset"};
constexpr Fault bodySIDInFooter{ErrorCode::InconsistentBodySID, "non-zero bodySID in footer"};

// The version.
constexpr Fault invalidVersion{ErrorCode::IncompatibleVersion, "invalid version"};
constexpr Fault incompatibleVersion{ErrorCode::IncompatibleVersion, "incompatible version"};
constexpr Fault earlierVersion{ErrorCode::UnimplementedVersion, "earlier version"};
constexpr Fault laterVersion{ErrorCode::UnimplementedVersion, "later version"};

} // namespace mxf::faults

} // namespace vexa_toolkit
