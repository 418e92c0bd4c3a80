#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of Generic Container elements (SMPTE 379M).
namespace mxfgc::faults {

using klvutil::ErrorCode;
using klvutil::Fault;

constexpr Fault invalidElement{ErrorCode::InvalidGCElement, "invalid GC element"};
constexpr Fault invalidSystemElement{ErrorCode::InvalidGCElement, "invalid GC system element"};
constexpr Fault invalidEssenceElement{ErrorCode::InvalidGCElement, "invalid GC essence element"};
constexpr Fault nonStandardBERLength{ErrorCode::NonStandardBERLengthForm,
                                     "non-standard BER length form"};
constexpr Fault unexpectedSystemElement{ErrorCode::UnexpectedGCElement,
                                        "unexpected GC system element"};
constexpr Fault unexpectedEssenceElement{ErrorCode::UnexpectedGCElement,
                                         "unexpected GC essence element"};
constexpr Fault unsupportedElementLength{ErrorCode::UnsupportedGCElementLength,
                                         "unsupported GC essence element length"};

} // namespace mxfgc::faults

} // namespace vexa_toolkit
