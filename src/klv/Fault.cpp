#include "klv/Fault.h"

#include "util/hex.h"

#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/KLVKey.h>
#include <vexa/klv/parse_error.h>

#include <sstream>

inline namespace vexa_toolkit {

namespace klvutil {

namespace {

std::string textOf(const Fault& fault, const std::string& detail) {
    return detail.empty() ? fault.text : fault.text + (" - " + detail);
}

template <class Printable> std::string printed(const Printable& printable) {
    std::ostringstream text;
    text << printable;
    return text.str();
}

} // namespace

void report(ErrorHandler* errorHandler, const Fault& fault, const std::string& detail) {
    if (fault.severity == Severity::FatalError) {
        fail(errorHandler, fault, detail);
    }
    if (errorHandler == nullptr) {
        return;
    }
    if (fault.severity == Severity::Warning) {
        errorHandler->warning(toUID(fault.code), textOf(fault, detail));
    } else {
        errorHandler->error(toUID(fault.code), textOf(fault, detail));
    }
}

void reportOf(ErrorHandler* errorHandler, const Fault& fault, const std::string& property,
              const std::string& detail) {
    std::string text = fault.text;
    text.replace(text.find('*'), 1, property);
    report(errorHandler, {fault.severity, fault.code, text.c_str()}, detail);
}

void fail(const Fault& fault, const std::string& detail) {
    throw parse_error(toUID(fault.code), textOf(fault, detail));
}

void fail(ErrorHandler* errorHandler, const Fault& fault, const std::string& detail) {
    const parse_error error(toUID(fault.code), textOf(fault, detail), errorHandler);
    if (errorHandler != nullptr) {
        errorHandler->fatalError(error.code(), error.what());
    }
    throw error;
}

std::string describe(const KLVKey& key) {
    return printed(key);
}

std::string describe(const MXFUID& uid) {
    return printed(uid);
}

std::string describe(std::uint8_t byte) {
    return "0x" + util::hexByte(byte);
}

} // namespace klvutil

} // namespace vexa_toolkit
