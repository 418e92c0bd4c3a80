#pragma once

#include <vexa/util/assertion_failure.h>

inline namespace vexa_toolkit {

namespace util {

/// Throws assertion_failure with `condition`, and with the caller's place, unless it holds.
constexpr void check(bool holds, const char* condition, const char* file = __builtin_FILE(),
                     int line = __builtin_LINE()) {
    if (!holds) {
        throw assertion_failure(condition, file, line);
    }
}

} // namespace util

} // namespace vexa_toolkit
