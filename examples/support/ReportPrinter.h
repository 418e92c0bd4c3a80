#pragma once

#include <vexa/vexa.h>

#include <cstdint>
#include <exception>
#include <iomanip>
#include <istream>
#include <ostream>
#include <string>

/// Prints each report in a line, as `warning 4C4C0007 at 2578: non-standard BER length form`.
class ReportPrinter : public ErrorHandler {
public:
    /// The stream must outlive the printer.
    explicit ReportPrinter(std::ostream& out) : out_(out) {}

    bool hasErrors() const { return hasErrors_; }
    /// Whether the read broke off.
    bool hasFatalError() const { return hasFatalError_; }
    /// Of the read, in bytes; -1 where it isn't known.
    std::int64_t position() const {
        return locator_ == nullptr ? -1 : std::streamoff(locator_->getPosition());
    }

    void setLocator(const Locator* locator) override { locator_ = locator; }
    void startParse() override {}
    void endParse() override { locator_ = nullptr; }

    void warning(const MXFUID& code, const std::string& text) override {
        print("warning", code, text);
    }

    void error(const MXFUID& code, const std::string& text) override {
        hasErrors_ = true;
        print("error", code, text);
    }

    void fatalError(const MXFUID& code, const std::string& text) override {
        hasErrors_ = true;
        hasFatalError_ = true;
        print("fatal", code, text);
    }

private:
    void print(const char* severity, const MXFUID& code, const std::string& text) const {
        out_ << severity << ' ' << std::hex << std::uppercase << std::setfill('0') << std::setw(8)
             << static_cast<std::uint32_t>(klvutil::toErrorCode(code)) << std::dec;
        if (position() >= 0) { // a stream that has failed may not know
            out_ << " at " << position();
        }
        out_ << ": " << text << '\n';
    }

    std::ostream& out_;
    const Locator* locator_ = nullptr;
    bool hasErrors_ = false;
    bool hasFatalError_ = false;
};

/// The text of what ended a read of `stream`, and what it means for the file.
inline std::string explain(const std::exception& failure, const std::istream& stream) {
    std::string text = failure.what();
    const auto* const parseError = dynamic_cast<const klvutil::parse_error*>(&failure);
    if (parseError == nullptr) {
        return text;
    }
    switch (klvutil::toErrorCode(parseError->code())) {
    case klvutil::ErrorCode::InvalidRunIn:
        return text + " (no MXF file)";
    case klvutil::ErrorCode::StreamFailure:
        return stream.bad() ? text : text + " (the file ends early)";
    default:
        return text;
    }
}
