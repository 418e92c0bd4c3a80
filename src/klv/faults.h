#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of streams and of KLV coding (SMPTE 336M).
namespace klvutil::faults {

constexpr Fault streamNotGood = fatal(ErrorCode::StreamFailure, "input stream is not good()");
constexpr Fault unsuccessfulRead = fatal(ErrorCode::StreamFailure, "unsuccessful read()");
constexpr Fault unsuccessfulSeek = fatal(ErrorCode::StreamFailure, "unsuccessful seekg()");
constexpr Fault unsuccessfulIgnore = fatal(ErrorCode::StreamFailure, "unsuccessful ignore()");
constexpr Fault unsuccessfulGet = fatal(ErrorCode::StreamFailure, "unsuccessful get()");
constexpr Fault unsuccessfulPutback = fatal(ErrorCode::StreamFailure, "unsuccessful putback()");

constexpr Fault invalidKey = error(ErrorCode::InvalidKey, "invalid SMPTE key");
constexpr Fault unimplementedCoding =
    fatal(ErrorCode::InvalidKey, "unimplemented SMPTE KLV coding");
constexpr Fault invalidLocalSet = fatal(ErrorCode::InvalidKey, "invalid local set type");
constexpr Fault invalidVariableLengthPack =
    fatal(ErrorCode::InvalidKey, "invalid variable length pack type");
constexpr Fault invalidWrapper = fatal(ErrorCode::InvalidKey, "invalid wrapper type");

constexpr Fault invalidBERLength = fatal(ErrorCode::InvalidBERLength, "invalid BER long form");

constexpr Fault incorrectUniversalSet =
    fatal(ErrorCode::IncorrectLength, "incorrect universal set length");
constexpr Fault incorrectLocalSet = fatal(ErrorCode::IncorrectLength, "incorrect local set length");
constexpr Fault incorrectVariableLengthPack =
    fatal(ErrorCode::IncorrectLength, "incorrect variable length pack length");

constexpr Fault unexpectedFillItemKeyVersion =
    warning(ErrorCode::UnexpectedFillItemKeyVersion, "unexpected fill item key version");

} // namespace klvutil::faults

} // namespace vexa_toolkit
