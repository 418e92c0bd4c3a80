#include "support.h"

#include "support/EventGrammar.h"

#include <array>
#include <cstdlib>
#include <iostream>

namespace fuzz {

namespace {

const std::string skipFailed = "unsuccessful ignore()";
const std::string seekFailed = "unsuccessful seekg()";

/// Where a stream without seeking ignores, another one seeks. Positions differ at a form, and
/// behind a failure.
Lines withSeeks(Lines lines) {
    bool failed = false;
    for (std::string& line : lines) {
        const std::size_t at = line.find(" @");
        if (at != std::string::npos && (failed || line.find("length form") != std::string::npos)) {
            line.erase(at, line.find(' ', at + 1) - at);
        }
        failed = failed || line.rfind("fatal", 0) == 0;
        if (failed && line.find(skipFailed) != std::string::npos) {
            line.replace(line.find(skipFailed), skipFailed.size(), seekFailed);
        }
    }
    return comparable(std::move(lines));
}

} // namespace

void finding(const std::string& text) {
    std::cerr << "finding: " << text << '\n';
    std::abort();
}

Input::Input(const std::uint8_t* data, std::size_t size)
    : bytes(data, data + size - 1),
      wants(std::array{Wants::Everything, Wants::Nothing, Wants::Small,
                       Wants::Something}[data[size - 1] & 3]),
      withErrorHandler((data[size - 1] & 4) == 0), readSize((data[size - 1] & 8) != 0 ? 7 : 4096),
      failAt((data[size - 1] & 0x18) == 0x18 ? bytes.size() / 2 : UINT64_MAX),
      choice(data[size - 1] >> 5) {}

void Run::parse(const std::function<void()>& parse, const std::string& allowedCheck) {
    bool reported = false;
    try {
        parse();
    } catch (const klvutil::parse_error& error) {
        failure = error.what();
        reported = true;
        require(!failure.empty(), "a failure has a text");
    } catch (const util::assertion_failure& check) {
        failure = check.what();
        if (failure != "assertion failure: " + allowedCheck) {
            finding(failure);
        }
    }
    std::string fatal;
    for (const std::string& line : recording.lines()) {
        const bool isFatal = line.rfind("fatal ", 0) == 0;
        require(!isFatal || fatal.empty(), "there is one fatal error");
        fatal = isFatal ? line : fatal;
    }
    if (errors != nullptr) {
        require(fatal.empty() != reported, "what is reported as fatal leaves the parse");
        require(fatal.size() >= failure.size() || !reported, "the failure is the one reported");
        require(!reported ||
                    fatal.compare(fatal.size() - failure.size(), std::string::npos, failure) == 0,
                "the failure is the one reported");
    }
}

void readEachWay(const Input& input, const std::function<void(std::istream&, Run&)>& read) {
    const auto runOn = [&](bool seekable, bool beyondEnd, std::string& failure) {
        TestStream stream(input.bytes, {seekable, input.readSize, input.failAt, beyondEnd});
        Run run(input.withErrorHandler);
        read(stream, run);
        failure = run.failure;
        return run.recording.lines();
    };
    std::string first, failure;
    Lines lines = runOn(false, false, first);
    const std::string fault = grammarFault(lines, input.wants);
    if (!fault.empty()) {
        finding(fault + "; of\n" + joined(lines));
    }
    lines = withSeeks(std::move(lines));
    const bool lacksBytes = first == skipFailed;
    for (const bool beyondEnd : {false, true}) {
        const Lines other = withSeeks(runOn(true, beyondEnd, failure));
        if (input.failAt != UINT64_MAX) {
            continue; // a seek may cross the place where reading fails
        }
        if (lacksBytes && beyondEnd) {
            // The seek in place of the failed skip leads beyond the end, which is noticed later.
            require(!failure.empty(), "a value cut short is noticed");
            continue;
        }
        require(failure == (lacksBytes ? seekFailed : first), "same failure, seekable or not");
        if (lines != other) {
            finding("not the same events, seekable or not\n" + joined(lines) + "or\n" +
                    joined(other));
        }
    }
}

} // namespace fuzz
