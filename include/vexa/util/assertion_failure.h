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
    /// `condition` says what should have held; what() is "assertion failure: " and that text.
    explicit assertion_failure(const std::string& condition);
    ~assertion_failure() override;

    const char* what() const noexcept override;

private:
    std::string text_;
};

} // namespace util

} // namespace vexa_toolkit
