#pragma once

#include <vexa/vexa.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

/// What a read had to say about its file.
struct Report {
    klvutil::Severity severity;
    MXFUID code;
    std::string text;
    /// In bytes; -1 where it isn't known.
    std::int64_t position;
};

/// As "warning NonStandardLengthForm at 2578: non-standard BER length form - 0x81".
std::string lineOf(const Report& report);

/// Passes reports on, of equal ones the first ten unless all are asked for.
class Reports : public ReportHandler {
public:
    using Receiver = std::function<void(const Report&)>;

    Reports(bool all, Receiver receiver) : all_(all), receiver_(std::move(receiver)) {}

    bool hasErrors() const { return hasErrors_; }
    /// Whether the read broke off.
    bool hasFatalError() const { return hasFatalError_; }
    /// Tells each report that came more often, without a position, and how often it was kept back.
    void tellKeptBack(const std::function<void(const Report&, std::uint64_t)>& receiver) const;

    void report(klvutil::Severity severity, const MXFUID& code, const std::string& text,
                std::streamoff position) override;

private:
    bool all_;
    Receiver receiver_;
    bool hasErrors_ = false;
    bool hasFatalError_ = false;
    /// How often each came, by its line without a position.
    std::map<std::string, std::pair<Report, std::uint64_t>> counts_;
};
