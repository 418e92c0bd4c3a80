#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of index table segments (SMPTE 377M).
namespace mxfindex::faults {

using klvutil::ErrorCode;
using klvutil::Fault;

constexpr Fault inconsistentDuration{ErrorCode::InconsistentIndexSegment,
                                     "inconsistent indexDuration and editUnitByteCount"};
constexpr Fault inconsistentEntryCount{ErrorCode::InconsistentIndexSegment,
                                       "inconsistent indexDuration and indexEntryArray"};
constexpr Fault inconsistentStartPosition{ErrorCode::InconsistentIndexSegment,
                                          "inconsistent editUnitByteCount and indexStartPosition"};
constexpr Fault inconsistentEntries{ErrorCode::InconsistentIndexSegment,
                                    "inconsistent editUnitByteCount and indexEntryArray"};

} // namespace mxfindex::faults

} // namespace vexa_toolkit
