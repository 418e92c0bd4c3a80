#pragma once

#include "util/quietly.h"

inline namespace vexa_toolkit {

namespace util {

/// Calls `call`. If it throws, calls `undo` as well, and lets the exception go on.
template <class Call, class Undo> void attempt(Call call, Undo undo) {
    try {
        call();
    } catch (...) {
        quietly(undo);
        throw;
    }
}

} // namespace util

} // namespace vexa_toolkit
