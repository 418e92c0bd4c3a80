#pragma once

#include <vexa/klv/ErrorCode.h>
#include <vexa/klv/ErrorHandler.h>

#include <ios>
#include <vector>

inline namespace vexa_toolkit {

/// An error handler to whom a report is a report: all of them come to one place, with their
/// position.
///
///     std::cerr << klvutil::severityName(severity) << ' ' << klvutil::codeName(code) << " at "
///               << position << ": " << text << '\n';
class VEXA_EXPORT ReportHandler : public ErrorHandler {
public:
    ~ReportHandler() override;

    /// `position` is where the parse is, in bytes from the beginning of the stream; -1 where that
    /// isn't known.
    virtual void report(klvutil::Severity severity, const MXFUID& code, const std::string& text,
                        std::streamoff position) = 0;

    /// Where the parse is that runs; -1 between parses, and where it isn't known.
    std::streamoff position() const;

    void setLocator(const Locator* locator) override;
    void startParse() override;
    void endParse() override;
    void warning(const MXFUID& code, const std::string& text) override;
    void error(const MXFUID& code, const std::string& text) override;
    void fatalError(const MXFUID& code, const std::string& text) override;

private:
    const Locator* locator_ = nullptr;
    /// Of the parses that run, the outermost first.
    std::vector<const Locator*> locators_;
};

} // namespace vexa_toolkit
