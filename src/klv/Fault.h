#pragma once

#include <vexa/klv/ErrorCode.h>
#include <vexa/klv/KLVKey.h>

#include <cstdint>
#include <exception>
#include <string>

inline namespace vexa_toolkit {

class ErrorHandler;

namespace klvutil {

/// What can be wrong with input: the code and the text of its report.
struct Fault {
    ErrorCode code;
    const char* text;
};

// Each report's text is the fault's own, with " - " and the detail behind it if there is one. An
// error handler may be null: then nothing is reported.

void reportWarning(ErrorHandler* errorHandler, const Fault& fault, const std::string& detail = {});
void reportError(ErrorHandler* errorHandler, const Fault& fault, const std::string& detail = {});

/// The error "missing " and the name.
void reportMissing(ErrorHandler* errorHandler, ErrorCode code, const std::string& name);
/// The error "invalid " and the name, " value - " and the failure's text.
void reportInvalid(ErrorHandler* errorHandler, ErrorCode code, const std::string& name,
                   const std::exception& failure);

/// Throws parse_error; whoever runs the parse reports it.
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
