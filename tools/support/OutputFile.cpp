#include "support/OutputFile.h"

#include <cerrno>
#include <iostream>
#include <system_error>

namespace fs = std::filesystem;

OutputFile::OutputFile(const fs::path& path, const fs::path& input) : path_(path), out_(&file_) {
    if (path == "-") {
        path_ = "standard output";
        out_ = &std::cout;
        return;
    }
    std::error_code failure;
    if (path.has_parent_path()) {
        fs::create_directories(path.parent_path(), failure);
        if (failure) {
            throw OutputFailure(path, failure.message());
        }
    }
    const fs::file_status status = fs::status(path, failure);
    if (fs::is_directory(status)) {
        throw OutputFailure(path, std::generic_category().message(EISDIR));
    }
    fs::path written = path;
    if (!fs::exists(status) || fs::is_regular_file(status)) {
        written = path.string() + ".part";
    }
    if (fs::equivalent(path, input, failure) || fs::equivalent(written, input, failure)) {
        throw OutputFailure(path, "it is the input");
    }
    file_.open(written, std::ios_base::binary);
    check(file_.is_open());
    if (written != path) {
        temporary_ = written;
    }
}

OutputFile::~OutputFile() {
    if (!temporary_.empty()) {
        file_.close();
        std::error_code ignored;
        fs::remove(temporary_, ignored);
    }
}

boost::shared_ptr<std::ostream> OutputFile::stream() {
    return {boost::shared_ptr<void>(), out_};
}

void OutputFile::write(const void* data, std::uint64_t size) {
    check(bool(out_->write(static_cast<const char*>(data), static_cast<std::streamsize>(size))));
    bytes_ += size;
}

void OutputFile::rewrite(const std::string& beginning) {
    check(bool(out_->seekp(0)) &&
          bool(out_->write(beginning.data(), static_cast<std::streamsize>(beginning.size()))));
}

void OutputFile::finish() {
    check(bool(out_->flush()));
    if (temporary_.empty()) {
        return;
    }
    file_.close();
    check(!file_.fail());
    std::error_code failure;
    fs::rename(temporary_, path_, failure);
    if (failure) {
        throw OutputFailure(path_, failure.message());
    }
    temporary_.clear();
}

void OutputFile::check(bool success) const {
    if (!success) {
        throw OutputFailure(path_, std::generic_category().message(errno));
    }
}
