#include "support/Reports.h"

namespace {

constexpr std::uint64_t mostEqual = 10;

} // namespace

std::string lineOf(const Report& report) {
    const std::string place = report.position < 0 ? "" : " at " + std::to_string(report.position);
    return klvutil::severityName(report.severity) + ' ' + klvutil::codeName(report.code) + place +
           ": " + report.text;
}

void Reports::tellKeptBack(
    const std::function<void(const Report&, std::uint64_t)>& receiver) const {
    for (const auto& [line, counted] : counts_) {
        if (counted.second > mostEqual) {
            receiver(counted.first, counted.second - mostEqual);
        }
    }
}

void Reports::report(klvutil::Severity severity, const MXFUID& code, const std::string& text,
                     std::streamoff position) {
    hasErrors_ = hasErrors_ || severity != klvutil::Severity::Warning;
    hasFatalError_ = hasFatalError_ || severity == klvutil::Severity::FatalError;
    Report report{severity, code, text, -1};
    if (!all_) {
        auto& counted = counts_.insert({lineOf(report), {report, 0}}).first->second;
        if (++counted.second > mostEqual) {
            return;
        }
    }
    report.position = position;
    receiver_(report);
}
