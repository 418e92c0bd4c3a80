#pragma once

#include <vexa/util/assertion_failure.h>

inline namespace vexa_toolkit {

namespace util {

/// Throws assertion_failure with `condition` unless it holds.
constexpr void check(bool holds, const char* condition) {
    if (!holds) {
        throw assertion_failure(condition);
    }
}

} // namespace util

} // namespace vexa_toolkit
