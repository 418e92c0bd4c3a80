#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of Generic Container elements (SMPTE 379M).
namespace mxfgc::faults {

using klvutil::error;
using klvutil::ErrorCode;
using klvutil::Fault;
using klvutil::warning;

constexpr Fault invalidElement = error(ErrorCode::InvalidGCElement, "invalid GC element");
constexpr Fault invalidSystemElement =
    error(ErrorCode::InvalidGCElement, "invalid GC system element");
constexpr Fault invalidEssenceElement =
    error(ErrorCode::InvalidGCElement, "invalid GC essence element");
constexpr Fault nonStandardBERLength =
    warning(ErrorCode::NonStandardBERLengthForm, "non-standard BER length form");
constexpr Fault unexpectedSystemElement =
    error(ErrorCode::UnexpectedGCElement, "unexpected GC system element");
constexpr Fault unexpectedEssenceElement =
    error(ErrorCode::UnexpectedGCElement, "unexpected GC essence element");
constexpr Fault unsupportedElementLength =
    error(ErrorCode::UnsupportedGCElementLength, "unsupported GC essence element length");

} // namespace mxfgc::faults

} // namespace vexa_toolkit
