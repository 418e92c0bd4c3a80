#pragma once

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

    /// In bytes from the file's start; -1 where it isn't known.
    void tell(std::int64_t position);

private:
    int sync() override;

    std::int64_t size_ = 0;
    std::int64_t percent_ = -1;
    bool isShown_ = false;
    std::ostream clearing_{this};
    std::ostream* tied_ = nullptr;
};
