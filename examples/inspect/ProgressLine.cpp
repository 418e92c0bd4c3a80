#include "ProgressLine.h"

#include <filesystem>
#include <iostream>
#include <system_error>
#include <unistd.h>

ProgressLine::ProgressLine(const std::string& path) {
    constexpr std::uintmax_t longFile = 256 * 1024 * 1024;
    std::error_code unknown;
    const std::uintmax_t size = std::filesystem::file_size(path, unknown);
    if (!unknown && size > longFile && ::isatty(STDERR_FILENO) == 1) {
        size_ = static_cast<std::int64_t>(size);
    }
}

ProgressLine::~ProgressLine() {
    if (percent_ >= 0) {
        std::cerr << "\r          \r";
    }
}

void ProgressLine::tell(std::int64_t position) {
    if (size_ == 0 || position < 0) {
        return;
    }
    const std::int64_t percent = 100 * (position / 1024) / (size_ / 1024);
    if (percent != percent_) {
        percent_ = percent;
        std::cerr << '\r' << percent << " %" << std::flush;
    }
}
