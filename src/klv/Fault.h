#pragma once

#include <vexa/klv/ErrorCode.h>
#include <vexa/klv/KLVKey.h>

#include <cstdint>
#include <string>

inline namespace vexa_toolkit {

class ErrorHandler;

namespace klvutil {

/// What can be wrong with input: how bad it is, and the code and the text of its report. Where the
/// text is of a property it has a `*` for the name.
struct Fault {
    Severity severity;
    ErrorCode code;
    const char* text;
};

constexpr Fault warning(ErrorCode code, const char* text) {
    return {Severity::Warning, code, text};
}
constexpr Fault error(ErrorCode code, const char* text) {
    return {Severity::Error, code, text};
}
constexpr Fault fatal(ErrorCode code, const char* text) {
    return {Severity::FatalError, code, text};
}

// Each report's text is the fault's own, with " - " and the detail behind it if there is one. An
// error handler may be null: then nothing is reported.

/// Reports a warning or an error. A fatal one fails.
void report(ErrorHandler* errorHandler, const Fault& fault, const std::string& detail = {});

/// The same with the property's name in the text.
void reportOf(ErrorHandler* errorHandler, const Fault& fault, const std::string& property,
              const std::string& detail = {});

/// Throws parse_error; whoever runs the parse reports it as fatal, however bad the fault is
/// elsewhere.
[[noreturn]] void fail(const Fault& fault, const std::string& detail = {});

/// Reports a fatal error, then throws parse_error.
[[noreturn]] void fail(ErrorHandler* errorHandler, const Fault& fault,
                       const std::string& detail = {});

/// A key, a UID or a byte as the detail of a report.
std::string describe(const KLVKey& key);
std::string describe(const MXFUID& uid);
std::string describe(std::uint8_t byte);

} // namespace klvutil

} // namespace vexa_toolkit
