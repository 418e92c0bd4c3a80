#pragma once

#include <vexa/Export.h>

#include <exception>
#include <string>

inline namespace vexa_toolkit {

namespace util {

/// A broken contract: of the caller, or of the library itself. Input that is merely bad doesn't
/// end in this exception where it can be reported instead.
class VEXA_EXPORT assertion_failure : public std::exception {
public:
    /// `condition` says what should have held; what() is "assertion failure: " and that text. The
    /// place is where the constructor is called from.
    explicit assertion_failure(const std::string& condition, const char* file = __builtin_FILE(),
                               int line = __builtin_LINE());
    ~assertion_failure() override;

    const char* what() const noexcept override;

    /// The source file that the check stands in, relative to the library's source tree.
    const char* file() const noexcept;

    /// The line in that file, from 1.
    int line() const noexcept;

private:
    std::string text_;
    const char* file_;
    int line_;
};

} // namespace util

} // namespace vexa_toolkit
