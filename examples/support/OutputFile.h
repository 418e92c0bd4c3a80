#pragma once

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

/// A file that is written, and remembers why it couldn't be.
class OutputFile {
public:
    bool isOpen() const { return file_.is_open(); }
    const std::filesystem::path& path() const { return path_; }
    std::uint64_t bytes() const { return bytes_; }
    /// Empty while all is well.
    const std::string& problem() const { return problem_; }

    /// Makes its directory, too. Throws std::runtime_error with the problem, also if the file is
    /// the input.
    void open(const std::filesystem::path& path, const std::filesystem::path& input) {
        path_ = path;
        std::error_code failure;
        std::filesystem::create_directories(path.parent_path(), failure);
        if (failure) {
            fail(failure.message());
        }
        if (std::filesystem::equivalent(path, input, failure)) {
            fail("it is the input");
        }
        file_.open(path, std::ios_base::binary);
        if (!file_) {
            fail(systemReason());
        }
    }

    /// Throws std::runtime_error with the problem.
    void write(const std::uint8_t* data, std::uint64_t size) {
        if (!file_.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size))) {
            fail(systemReason());
        }
        bytes_ += size;
    }

    void close() {
        file_.close();
        if (!file_ && problem_.empty()) {
            problem_ = systemReason();
        }
    }

private:
    static std::string systemReason() { return std::generic_category().message(errno); }

    [[noreturn]] void fail(const std::string& problem) {
        problem_ = problem;
        throw std::runtime_error(problem);
    }

    std::filesystem::path path_;
    std::ofstream file_;
    std::uint64_t bytes_ = 0;
    std::string problem_;
};
