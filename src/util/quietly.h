#pragma once

inline namespace vexa_toolkit {

namespace util {

/// Calls what must not hide an exception that is on its way.
template <class Call> void quietly(Call call) {
    try {
        call();
    } catch (...) { // NOLINT(bugprone-empty-catch): the first exception is the one that counts
    }
}

} // namespace util

} // namespace vexa_toolkit
