#include "ProgressLine.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <unistd.h>

// Standard error is written by stdio here: std::cerr would flush standard output each time, and
// with it clear the line.

ProgressLine::ProgressLine(std::optional<std::uint64_t> fileSize) {
    constexpr std::uint64_t longFile = 256 * 1024 * 1024;
    if (fileSize > longFile && ::isatty(STDERR_FILENO) == 1) {
        size_ = static_cast<std::int64_t>(*fileSize);
    }
    tied_ = std::cout.tie(&clearing_);
}

ProgressLine::~ProgressLine() {
    std::cout.tie(tied_);
    sync();
}

void ProgressLine::tell(std::int64_t position) {
    if (size_ == 0 || position < 0) {
        return;
    }
    const std::int64_t percent =
        std::min<std::int64_t>(100, 100 * (position / 1024) / (size_ / 1024));
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
