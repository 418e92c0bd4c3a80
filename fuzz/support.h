#pragma once

#include "support/Recorder.h"
#include "support/TestStream.h"

#include <functional>
#include <istream>
#include <string>
#include <vector>

/// What the fuzz targets share. What they find ends the process.
namespace fuzz {

[[noreturn]] void finding(const std::string& text);
inline void require(bool holds, const char* expectation) {
    if (!holds) {
        finding(expectation);
    }
}

/// The bytes to read are the input but for its last byte, which chooses how they are read: what
/// real files begin with stays where it is when they are taken as input.
struct Input {
    Input(const std::uint8_t* data, std::size_t size);

    std::vector<std::uint8_t> bytes;
    Wants wants;
    bool withErrorHandler;
    std::size_t readSize;
    std::uint64_t failAt;
    /// 0 to 7, for the target's own use.
    unsigned choice;
};

/// What a read told, to the recorders that it was given and to its error handler, which may be
/// null.
struct Run {
    explicit Run(bool withErrorHandler) : errors(withErrorHandler ? &handler : nullptr) {}
    Run(const Run&) = delete;

    /// Runs a parse, and keeps how it failed. Only klvutil::parse_error, which the error handler
    /// must know, and that check may leave it.
    void parse(const std::function<void()>& parse, const std::string& allowedCheck = {});

    Recording recording;
    std::string failure;
    ErrorHandler* const errors;

private:
    KeepingErrorHandler handler{recording};
};

/// Reads the input on a stream without seeking, and on streams that seek as memory and as files do.
/// All must tell the same, by the grammars of the interfaces.
void readEachWay(const Input& input, const std::function<void(std::istream&, Run&)>& read);

/// Each fuzz_*.cpp defines it.
void testInput(const Input& input);

} // namespace fuzz
