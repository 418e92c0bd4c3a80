#include <vexa/klv/DullErrorHandler.h>

inline namespace vexa_toolkit {

DullErrorHandler::~DullErrorHandler() = default;

void DullErrorHandler::setLocator(const Locator*) {}
void DullErrorHandler::startParse() {}
void DullErrorHandler::endParse() {}
void DullErrorHandler::warning(const MXFUID&, const std::string&) {}
void DullErrorHandler::error(const MXFUID&, const std::string&) {}
void DullErrorHandler::fatalError(const MXFUID&, const std::string&) {}

} // namespace vexa_toolkit
