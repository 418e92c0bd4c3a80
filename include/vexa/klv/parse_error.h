#pragma once

#include <vexa/Export.h>
#include <vexa/klv/MXFUID.h>

#include <stdexcept>
#include <string>

inline namespace vexa_toolkit {

namespace klvutil {

/// Bad input that a parse can't live with.
class VEXA_EXPORT parse_error : public std::runtime_error {
public:
    parse_error(const MXFUID& code, const std::string& text, bool reported = false);
    ~parse_error() override;

    /// One of the codes of ErrorCode.h.
    const MXFUID& code() const noexcept { return code_; }

    /// True once an ErrorHandler has been told.
    bool reported() const noexcept { return reported_; }
    void setReported() noexcept { reported_ = true; }

private:
    MXFUID code_;
    bool reported_;
};

} // namespace klvutil

} // namespace vexa_toolkit
