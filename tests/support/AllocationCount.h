#pragma once

#include <cstdint>

/// How often memory was allocated with `new` in this process so far.
std::uint64_t allocationCount();
