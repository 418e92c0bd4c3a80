#pragma once

#include <vexa/vexa.h>

#include <cstdint>
#include <ostream>
#include <streambuf>
#include <string>

/// How far a long read has come, in one line of a terminal. Says nothing where standard error is no
/// terminal, or the file is short.
///
/// Standard output is tied to it while it lives: whatever is printed there clears the line first.
class ProgressLine : private std::streambuf {
public:
    /// Of a read of the file at `path`.
    explicit ProgressLine(const std::string& path);
    ~ProgressLine() override;
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// How far the read is whose reports go there.
    void tell(const ReportHandler& reports);

private:
    int sync() override;

    std::int64_t size_ = 0;
    std::int64_t percent_ = -1;
    bool isShown_ = false;
    std::ostream clearing_{this};
    std::ostream* tied_ = nullptr;
};
