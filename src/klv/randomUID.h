#pragma once

#include <vexa/klv/MXFUID.h>

namespace klvutil {

/// A new random UUID (RFC 4122, version 4). Throws std::runtime_error where the system has no
/// random numbers.
MXFUID createRandomUID();

} // namespace klvutil
