#pragma once

#include <vexa/Export.h>
#include <vexa/klv/MXFUID.h>

#include <stdexcept>
#include <string>

inline namespace vexa_toolkit {

class ErrorHandler;

namespace klvutil {

/// Bad input that a parse can't live with.
class VEXA_EXPORT parse_error : public std::runtime_error {
public:
    /// `reportedTo` is the handler that has been told, null for none.
    parse_error(const MXFUID& code, const std::string& text,
                const ErrorHandler* reportedTo = nullptr);
    ~parse_error() override;

    /// One of the codes of ErrorCode.h.
    const MXFUID& code() const noexcept { return code_; }

    /// True once an ErrorHandler has been told.
    bool reported() const noexcept { return reportedTo_ != nullptr; }

    /// True if that handler was the last that has been told: one read may run inside another, each
    /// with a handler of its own.
    bool reportedTo(const ErrorHandler& handler) const noexcept { return reportedTo_ == &handler; }

    /// Notes that the handler has been told. It is compared, and never called.
    void setReportedTo(const ErrorHandler& handler) noexcept { reportedTo_ = &handler; }

private:
    MXFUID code_;
    const ErrorHandler* reportedTo_;
};

} // namespace klvutil

} // namespace vexa_toolkit
