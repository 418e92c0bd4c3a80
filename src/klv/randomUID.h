#pragma once

#include <vexa/klv/MXFUID.h>

inline namespace vexa_toolkit {

namespace klvutil {

/// A new random UUID (RFC 4122, version 4). Throws std::runtime_error where the system has no
/// random numbers.
MXFUID createRandomUID();

} // namespace klvutil

} // namespace vexa_toolkit
