#pragma once

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <stdexcept>
#include <string>

/// Why a file can't be written, with its path.
class OutputFailure : public std::runtime_error {
public:
    OutputFailure(const std::filesystem::path& path, const std::string& reason)
        : std::runtime_error("can't write " + path.string() + ": " + reason) {}
};

/// A file that is written under a temporary name beside its own, which it gets in the end; without
/// that it goes. "-" is standard output; that, and what else is no regular file, is written
/// straight away. Every failure is an OutputFailure.
class OutputFile {
public:
    /// Makes the file's directory, too. Refuses to write over the input.
    OutputFile(const std::filesystem::path& path, const std::filesystem::path& input);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Written so far.
    std::uint64_t bytes() const { return bytes_; }
    /// Whether what was written can be written over.
    bool isSeekable() const { return !temporary_.empty(); }

    /// For a writer, in place of write(). It must not outlive this.
    boost::shared_ptr<std::ostream> stream();

    void write(const void* data, std::uint64_t size);
    /// Writes over the file's first bytes.
    void rewrite(const std::string& beginning);
    /// Nothing may be written afterwards.
    void finish();

private:
    void check(bool success) const;

    std::filesystem::path path_;
    std::filesystem::path temporary_;
    std::ofstream file_;
    std::ostream* out_;
    std::uint64_t bytes_ = 0;
};
