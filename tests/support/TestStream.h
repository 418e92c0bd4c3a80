#pragma once

#include <cstdint>
#include <istream>
#include <streambuf>
#include <string>
#include <vector>

/// What a test stream does, and what was done to it.
struct TestStreamOptions {
    bool seekable = true;
    /// Bytes that a read at most brings, as a pipe does.
    std::size_t readSize = 4096;
    /// The read of the byte at this offset throws std::ios_base::failure.
    std::uint64_t failAt = UINT64_MAX;
    /// As in a file. In memory such a seek fails.
    bool seekableBeyondEnd = true;
    /// Only seeks from the present position succeed.
    bool relativeSeeksOnly = false;
    /// The size that it says it has.
    std::uint64_t claimedSize = UINT64_MAX;
};

/// An input buffer over bytes in memory that counts, and that can refuse to seek, bring little at a
/// time, and fail.
class TestStreambuf : public std::streambuf {
public:
    TestStreambuf(std::vector<std::uint8_t> bytes, TestStreamOptions options);

    /// Bytes brought into the buffer, and seeks that moved it.
    std::uint64_t bytesRead() const { return bytesRead_; }
    std::uint64_t seeks() const { return seeks_; }

protected:
    int_type underflow() override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                     std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

private:
    std::vector<std::uint8_t> bytes_;
    TestStreamOptions options_;
    std::vector<char> buffer_;
    /// Offset of the byte behind the get area.
    std::uint64_t offset_ = 0;
    std::uint64_t bytesRead_ = 0;
    std::uint64_t seeks_ = 0;
};

class TestStream : public std::istream {
public:
    explicit TestStream(std::vector<std::uint8_t> bytes, TestStreamOptions options = {});

    const TestStreambuf& buffer() const { return buffer_; }

private:
    TestStreambuf buffer_;
};

/// A file of tests/data/, whole, and its path.
std::vector<std::uint8_t> testData(const std::string& name);
std::string testDataPath(const std::string& name);
/// The names of all its MXF files.
std::vector<std::string> testDataNames();
/// A file from its header partition pack on.
std::vector<std::uint8_t> withoutRunIn(const std::vector<std::uint8_t>& file);
