#pragma once

#include <cstdint>
#include <string>

/// How far a long read has come, in one line of a terminal. Says nothing where standard error is no
/// terminal, or the file is short.
class ProgressLine {
public:
    explicit ProgressLine(const std::string& path);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// In bytes from the file's start.
    void tell(std::int64_t position);

private:
    std::int64_t size_ = 0;
    std::int64_t percent_ = -1;
};
