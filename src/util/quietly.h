#pragma once

#include <exception>

inline namespace vexa_toolkit {

namespace util {

/// Makes a call and answers whether it came back without an exception. What isn't an exception of
/// C++, a thread that is cancelled, goes on: held up it would end the process.
template <class Call> bool succeeds(Call call) {
    try {
        call();
        return true;
    } catch (...) {
        if (std::current_exception() == nullptr) {
            throw;
        }
        return false;
    }
}

/// Makes a call that must not hide an exception that is on its way.
template <class Call> void quietly(Call call) {
    succeeds(call);
}

} // namespace util

} // namespace vexa_toolkit
