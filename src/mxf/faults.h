#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of a file's structure (SMPTE 377M).
namespace mxf::faults {

using klvutil::error;
using klvutil::ErrorCode;
using klvutil::fatal;
using klvutil::Fault;
using klvutil::warning;

// Where an element may stand.
constexpr Fault unexpectedIndividualItem =
    fatal(ErrorCode::UnexpectedElement, "unexpected individual item");
constexpr Fault unexpectedLabel = fatal(ErrorCode::UnexpectedElement, "unexpected label");
constexpr Fault unexpectedUniversalSet =
    fatal(ErrorCode::UnexpectedElement, "unexpected universal set");
constexpr Fault unexpectedLocalSet = fatal(ErrorCode::UnexpectedElement, "unexpected local set");
constexpr Fault unexpectedFixedLengthPack =
    fatal(ErrorCode::UnexpectedElement, "unexpected fixed length pack");
constexpr Fault unexpectedVariableLengthPack =
    fatal(ErrorCode::UnexpectedElement, "unexpected variable length pack");
constexpr Fault unexpectedWrapper = fatal(ErrorCode::UnexpectedElement, "unexpected wrapper");
constexpr Fault adjacentFillItems =
    error(ErrorCode::AdjacentFillItems, "adjacent fill items should be concatenated");

// Run-in.
constexpr Fault invalidRunIn = fatal(ErrorCode::InvalidRunIn, "invalid run-in");
constexpr Fault generalizedPatternWithRunIn =
    error(ErrorCode::InvalidRunIn, "generalized operational pattern with run-in");

// The order of partitions and random index.
constexpr Fault noWayToPartitions =
    error(ErrorCode::InvalidStructure,
          "missing random index or non-zero footerPartition in the header partition pack");
constexpr Fault partitionAfterRandomIndex =
    error(ErrorCode::InvalidStructure, "unexpected partition");
constexpr Fault unexpectedRandomIndex =
    error(ErrorCode::InvalidStructure, "unexpected random index");
constexpr Fault missingHeader = error(ErrorCode::InvalidPartitionOrder, "missing header partition");
constexpr Fault unexpectedHeader =
    error(ErrorCode::InvalidPartitionOrder, "unexpected header partition");
constexpr Fault partitionAfterFooter =
    error(ErrorCode::InvalidPartitionOrder, "unexpected partition");

// The random index.
constexpr Fault invalidRandomIndex =
    error(ErrorCode::InvalidRandomIndex, "invalid random index value");
constexpr Fault incorrectRandomIndex =
    warning(ErrorCode::InvalidRandomIndex, "incorrect random index value");

// The partition pack.
constexpr Fault invalidPartition =
    fatal(ErrorCode::InvalidPartitionPack, "invalid partition value");
constexpr Fault unalignedHeaderByteCount =
    warning(ErrorCode::UnalignedHeaderByteCount, "headerByteCount is not a multiple of kagSize");
constexpr Fault unalignedIndexByteCount =
    warning(ErrorCode::UnalignedIndexByteCount, "indexByteCount is not a multiple of kagSize");
constexpr Fault incorrectHeaderByteCount =
    fatal(ErrorCode::IncorrectByteCount, "incorrect headerByteCount");
constexpr Fault incorrectIndexByteCount =
    fatal(ErrorCode::IncorrectByteCount, "incorrect indexByteCount");
constexpr Fault incorrectThisPartition =
    warning(ErrorCode::IncorrectThisPartition, "incorrect thisPartition");
constexpr Fault incorrectPreviousPartition =
    warning(ErrorCode::IncorrectPreviousPartition, "incorrect previousPartition");
constexpr Fault incorrectFooterPartition =
    warning(ErrorCode::IncorrectFooterPartition, "incorrect footerPartition");
constexpr Fault incorrectPreviousFooter =
    warning(ErrorCode::IncorrectFooterPartition, "incorrect previous footerPartition");
constexpr Fault inconsistentFooter =
    warning(ErrorCode::IncorrectFooterPartition, "inconsistent footerPartition");
constexpr Fault inconsistentIndexSID =
    warning(ErrorCode::InconsistentIndexSID, "inconsistent indexSID and indexByteCount");
constexpr Fault inconsistentBodySID =
    warning(ErrorCode::InconsistentBodySID, "inconsistent bodySID and bodyOffset");
constexpr Fault bodySIDInFooter =
    warning(ErrorCode::InconsistentBodySID, "non-zero bodySID in footer");

// The version.
constexpr Fault invalidVersion = error(ErrorCode::IncompatibleVersion, "invalid version");
constexpr Fault incompatibleVersion = error(ErrorCode::IncompatibleVersion, "incompatible version");
constexpr Fault earlierVersion = error(ErrorCode::UnimplementedVersion, "earlier version");
constexpr Fault laterVersion = warning(ErrorCode::UnimplementedVersion, "later version");

} // namespace mxf::faults

} // namespace vexa_toolkit
