#pragma once

#include <vexa/klv/ErrorHandler.h>

inline namespace vexa_toolkit {

/// Lets all reports pass: a base for handlers that care about a few.
class VEXA_EXPORT DullErrorHandler : public ErrorHandler {
public:
    ~DullErrorHandler() override;

    void setLocator(const Locator* locator) override;
    void startParse() override;
    void endParse() override;
    void warning(const MXFUID& code, const std::string& text) override;
    void error(const MXFUID& code, const std::string& text) override;
    void fatalError(const MXFUID& code, const std::string& text) override;
};

} // namespace vexa_toolkit
