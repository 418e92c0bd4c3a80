#include "support/ProgressLine.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <unistd.h>

// Standard error is written by stdio here: std::cerr would flush standard output each time, and
// with it clear the line.

ProgressLine::ProgressLine(const std::string& path) {
    constexpr std::uintmax_t longFile = 256 * 1024 * 1024;
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    if (!failure && size > longFile && ::isatty(STDERR_FILENO) == 1) {
        size_ = static_cast<std::int64_t>(size);
    }
    tied_ = std::cout.tie(&clearing_);
}

ProgressLine::~ProgressLine() {
    std::cout.tie(tied_);
    sync();
}

void ProgressLine::tell(const ReportHandler& reports) {
    if (size_ == 0) {
        return;
    }
    const std::int64_t kilobytes = std::max<std::int64_t>(0, reports.position()) / 1024;
    const std::int64_t percent = std::min<std::int64_t>(100, 100 * kilobytes / (size_ / 1024));
    if (percent != percent_) {
        percent_ = percent;
        isShown_ = true;
        std::fprintf(stderr, "\rreading %d %%", static_cast<int>(percent));
    }
}

/// Before anything else is printed.
int ProgressLine::sync() {
    if (isShown_) {
        isShown_ = false;
        std::fputs("\r             \r", stderr);
    }
    return 0;
}
