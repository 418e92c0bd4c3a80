#include "support/TestStream.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

TestStreambuf::TestStreambuf(std::vector<std::uint8_t> bytes, TestStreamOptions options)
    : bytes_(std::move(bytes)), options_(options), buffer_(options.readSize) {}

TestStreambuf::int_type TestStreambuf::underflow() {
    if (options_.failAt <= offset_) {
        throw std::ios_base::failure("bad read");
    }
    const std::uint64_t end = std::min<std::uint64_t>(bytes_.size(), options_.failAt);
    if (offset_ >= end) {
        return traits_type::eof();
    }
    const std::uint64_t size = std::min<std::uint64_t>(buffer_.size(), end - offset_);
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(offset_), size, buffer_.begin());
    offset_ += size;
    bytesRead_ += size;
    setg(buffer_.data(), buffer_.data(), buffer_.data() + size);
    return traits_type::to_int_type(*gptr());
}

TestStreambuf::pos_type TestStreambuf::seekoff(off_type offset, std::ios_base::seekdir way,
                                               std::ios_base::openmode) {
    if (!options_.seekable) {
        return pos_type(off_type(-1));
    }
    const off_type present = static_cast<off_type>(offset_) - (egptr() - gptr());
    if (way == std::ios_base::cur && offset == 0) {
        return pos_type(present);
    }
    if (options_.relativeSeeksOnly && way != std::ios_base::cur) {
        return pos_type(off_type(-1));
    }
    const std::uint64_t size = std::min<std::uint64_t>(bytes_.size(), options_.claimedSize);
    const off_type base = way == std::ios_base::beg   ? 0
                          : way == std::ios_base::cur ? present
                                                      : static_cast<off_type>(size);
    off_type target = 0;
    if (__builtin_add_overflow(base, offset, &target) || target < 0 ||
        (target > static_cast<off_type>(bytes_.size()) && !options_.seekableBeyondEnd)) {
        return pos_type(off_type(-1));
    }
    ++seeks_;
    offset_ = static_cast<std::uint64_t>(target);
    setg(nullptr, nullptr, nullptr);
    return pos_type(target);
}

TestStreambuf::pos_type TestStreambuf::seekpos(pos_type position, std::ios_base::openmode which) {
    return seekoff(off_type(position), std::ios_base::beg, which);
}

TestStream::TestStream(std::vector<std::uint8_t> bytes, TestStreamOptions options)
    : std::istream(nullptr), buffer_(std::move(bytes), options) {
    rdbuf(&buffer_);
}

std::string testDataPath(const std::string& name) {
    return std::string(VEXA_TEST_DATA_DIR) + '/' + name;
}

std::vector<std::uint8_t> testData(const std::string& name) {
    std::ifstream file(testDataPath(name), std::ios_base::binary);
    if (!file) {
        throw std::runtime_error("no test data " + name);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> testDataNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(VEXA_TEST_DATA_DIR)) {
        if (entry.path().extension() == ".mxf") {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::uint8_t> withoutRunIn(const std::vector<std::uint8_t>& file) {
    const std::uint8_t key[] = {6, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1, 2};
    return {std::search(file.begin(), file.end(), std::begin(key), std::end(key)), file.end()};
}
