#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of streams and of KLV coding (SMPTE 336M).
namespace klvutil::faults {

constexpr Fault streamNotGood{ErrorCode::StreamFailure, "input stream is not good()"};
constexpr Fault unsuccessfulRead{ErrorCode::StreamFailure, "unsuccessful read()"};
constexpr Fault unsuccessfulSeek{ErrorCode::StreamFailure, "unsuccessful seekg()"};
constexpr Fault unsuccessfulIgnore{ErrorCode::StreamFailure, "unsuccessful ignore()"};
constexpr Fault unsuccessfulGet{ErrorCode::StreamFailure, "unsuccessful get()"};
constexpr Fault unsuccessfulPutback{ErrorCode::StreamFailure, "unsuccessful putback()"};

constexpr Fault invalidKey{ErrorCode::InvalidKey, "invalid SMPTE key"};
constexpr Fault unimplementedCoding{ErrorCode::InvalidKey, "unimplemented SMPTE KLV coding"};
constexpr Fault invalidLocalSet{ErrorCode::InvalidKey, "invalid local set type"};
constexpr Fault invalidVariableLengthPack{ErrorCode::InvalidKey,
                                          "invalid variable length pack type"};
constexpr Fault invalidWrapper{ErrorCode::InvalidKey, "invalid wrapper type"};

constexpr Fault invalidBERLength{ErrorCode::InvalidBERLength, "invalid BER long form"};

constexpr Fault incorrectUniversalSet{ErrorCode::IncorrectLength, "incorrect universal set length"};
constexpr Fault incorrectLocalSet{ErrorCode::IncorrectLength, "incorrect local set length"};
constexpr Fault incorrectVariableLengthPack{ErrorCode::IncorrectLength,
                                            "incorrect variable length pack length"};

constexpr Fault unexpectedFillItemKeyVersion{ErrorCode::UnexpectedFillItemKeyVersion,
                                             "unexpected fill item key version"};

} // namespace klvutil::faults

} // namespace vexa_toolkit
