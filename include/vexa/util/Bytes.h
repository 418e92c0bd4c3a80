#pragma once

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

namespace util {

/// Bytes in memory: a value as it is coded, or data without a meaning of its own.
using Bytes = std::vector<std::uint8_t>;

} // namespace util

} // namespace vexa_toolkit
