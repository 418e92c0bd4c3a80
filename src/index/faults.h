#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of index table segments (SMPTE 377M).
namespace mxfindex::faults {

using klvutil::error;
using klvutil::ErrorCode;
using klvutil::Fault;
using klvutil::warning;

constexpr Fault missingProperty = error(ErrorCode::MissingIndexProperty, "missing *");
constexpr Fault invalidProperty = error(ErrorCode::InvalidIndexProperty, "invalid * value");
constexpr Fault inconsistentDuration = warning(ErrorCode::InconsistentIndexSegment,
                                               "inconsistent indexDuration and editUnitByteCount");
constexpr Fault inconsistentEntryCount =
    warning(ErrorCode::InconsistentIndexSegment, "inconsistent indexDuration and indexEntryArray");
constexpr Fault inconsistentStartPosition = warning(
    ErrorCode::InconsistentIndexSegment, "inconsistent editUnitByteCount and indexStartPosition");
constexpr Fault inconsistentEntries = warning(ErrorCode::InconsistentIndexSegment,
                                              "inconsistent editUnitByteCount and indexEntryArray");

} // namespace mxfindex::faults

} // namespace vexa_toolkit
