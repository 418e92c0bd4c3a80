#include "klv/Fault.h"

#include "util/hex.h"

#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/KLVKey.h>
#include <vexa/klv/parse_error.h>

#include <sstream>

namespace klvutil {

namespace {

std::string textOf(const Fault& fault, const std::string& detail) {
    return detail.empty() ? fault.text : fault.text + (" - " + detail);
}

} // namespace

void reportWarning(ErrorHandler* errorHandler, const Fault& fault, const std::string& detail) {
    if (errorHandler != nullptr) {
        errorHandler->warning(toUID(fault.code), textOf(fault, detail));
    }
}

void reportError(ErrorHandler* errorHandler, const Fault& fault, const std::string& detail) {
    if (errorHandler != nullptr) {
        errorHandler->error(toUID(fault.code), textOf(fault, detail));
    }
}

void fail(const Fault& fault, const std::string& detail) {
    throw parse_error(toUID(fault.code), textOf(fault, detail));
}

void fail(ErrorHandler* errorHandler, const Fault& fault, const std::string& detail) {
    const parse_error error(toUID(fault.code), textOf(fault, detail), errorHandler != nullptr);
    if (errorHandler != nullptr) {
        errorHandler->fatalError(error.code(), error.what());
    }
    throw error;
}

std::string describe(const KLVKey& key) {
    std::ostringstream text;
    text << key;
    return text.str();
}

std::string describe(std::uint8_t byte) {
    return "0x" + util::hexByte(byte);
}

} // namespace klvutil
