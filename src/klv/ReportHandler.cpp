#include "klv/positionOf.h"

#include <vexa/klv/ReportHandler.h>

inline namespace vexa_toolkit {

using klvutil::Severity;

ReportHandler::~ReportHandler() = default;

std::streamoff ReportHandler::position() const {
    return locator_ == nullptr ? -1 : static_cast<std::streamoff>(klvutil::positionOf(*locator_));
}

void ReportHandler::setLocator(const Locator* locator) {
    locator_ = locator;
}

void ReportHandler::startParse() {
    locators_.push_back(locator_);
}

void ReportHandler::endParse() {
    if (!locators_.empty()) {
        locators_.pop_back();
    }
    locator_ = locators_.empty() ? nullptr : locators_.back();
}

void ReportHandler::warning(const MXFUID& code, const std::string& text) {
    report(Severity::Warning, code, text, position());
}

void ReportHandler::error(const MXFUID& code, const std::string& text) {
    report(Severity::Error, code, text, position());
}

void ReportHandler::fatalError(const MXFUID& code, const std::string& text) {
    report(Severity::FatalError, code, text, position());
}

} // namespace vexa_toolkit
