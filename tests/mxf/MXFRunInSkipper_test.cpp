#include "mxf/MXFRunInSkipper.h"
#include "support/KLVBytes.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

using Bytes = KLVBytes::Bytes;

constexpr std::uint32_t longest = MXFRunInSkipper::longestRunIn;

/// "<length> at <next byte>" or the report, which must be what is thrown.
std::string skip(std::istream& in, std::uint32_t maxLength = longest) {
    KeepingErrorHandler errors;
    MXFRunInSkipper skipper;
    skipper.setErrorHandler(&errors);
    try {
        const std::uint32_t length = skipper.skip(in, maxLength);
        KLVKey key;
        in.read(reinterpret_cast<char*>(key.bytes.data()), KLVKey::size);
        EXPECT_TRUE(MXFPartitionKey::isPartitionKey(key)) << key;
        EXPECT_EQ("", errors.text());
        return std::to_string(length);
    } catch (const klvutil::parse_error& error) {
        EXPECT_TRUE(error.reported());
        EXPECT_EQ(1U, errors.reports().size());
        EXPECT_EQ(error.what(), errors.reports().front().text);
        EXPECT_EQ(error.code(), errors.reports().front().code);
        return errors.text();
    }
}

/// A run-in, and a partition pack's key with a little behind it.
Bytes withRunIn(const KLVBytes& runIn) {
    return KLVBytes(runIn).key(partitionKey(2, 1)).counting(20).bytes();
}

KLVBytes zeros(std::size_t count) {
    return KLVBytes().raw(Bytes(count));
}

/// Tells its position, but takes no other seek.
class TellingBuf : public std::stringbuf {
public:
    using std::stringbuf::stringbuf;

protected:
    pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                     std::ios_base::openmode which) override {
        return offset == 0 && way == std::ios_base::cur
                   ? std::stringbuf::seekoff(offset, way, which)
                   : pos_type(off_type(-1));
    }
};

} // namespace

TEST(MXFRunInSkipper, FindsThePackBehindARunIn) {
    const KLVBytes almost = KLVBytes({0x06, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1});
    const struct {
        KLVBytes runIn;
        std::uint32_t maxLength;
        const char* expected;
    } rows[] = {
        {KLVBytes(), longest, "0"},
        {KLVBytes(), 0, "0"},
        {zeros(1), 1, "1"},
        {zeros(1), 0, "fatal 4C4C0002 invalid run-in\n"},
        {zeros(longest), longest, "65535"},
        {zeros(longest + 1), longest, "fatal 4C4C0002 invalid run-in\n"},
        // False starts, broken by another byte, by the first of the pattern, and late.
        {KLVBytes({0x06, 0x0E, 0x2B, 0x34, 2, 0xFF}), longest, "6"},
        {KLVBytes({0x06, 0x0E, 0x2B, 0x34, 2}), longest, "5"},
        {KLVBytes({0x06, 0x06, 0x06}), longest, "3"},
        {almost, longest, "10"},
        {KLVBytes(almost).raw(almost).raw(almost), longest, "30"},
        // A match that began within the limit is followed to its end, and no other.
        {zeros(longest - 1).raw({6}), longest, "65535"},
        {zeros(longest).raw({6}), longest, "fatal 4C4C0002 invalid run-in\n"},
        {zeros(longest).raw({6, 0x0E}), longest, "fatal 4C4C0002 invalid run-in\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.runIn.size() << " bytes, expected " << row.expected);
        TestStreamOptions options;
        TestStream seekable(withRunIn(row.runIn), options);
        EXPECT_EQ(row.expected, skip(seekable, row.maxLength));
        // One read brings all of it, so that it can be put back.
        options.seekable = false;
        options.readSize = 100000;
        TestStream unseekable(withRunIn(row.runIn), options);
        EXPECT_EQ(row.expected, skip(unseekable, row.maxLength));
    }
}

TEST(MXFRunInSkipper, ReadsNoFurtherThanItMay) {
    TestStreamOptions options;
    options.readSize = 1;
    TestStream in(Bytes(200000), options);
    EXPECT_EQ("fatal 4C4C0002 invalid run-in\n", skip(in));
    EXPECT_EQ(longest + 1U, in.buffer().bytesRead());
}

TEST(MXFRunInSkipper, RefusesAStreamWithoutAPack) {
    for (const KLVBytes& bytes : {KLVBytes(), KLVBytes({0x06}), zeros(1000),
                                  KLVBytes({0x06, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1})}) {
        TestStream in(bytes.bytes());
        EXPECT_EQ("fatal 4C4C0002 invalid run-in\n", skip(in)) << bytes.size();
    }
    // Without an error handler nobody has been told.
    TestStream empty(Bytes{});
    try {
        MXFRunInSkipper().skip(empty, longest);
        ADD_FAILURE();
    } catch (const klvutil::parse_error& error) {
        EXPECT_FALSE(error.reported());
        EXPECT_STREQ("invalid run-in", error.what());
    }
}

TEST(MXFRunInSkipper, ReportsAStreamThatFails) {
    const Bytes bytes = withRunIn(zeros(100));

    TestStream bad(bytes);
    bad.setstate(std::ios_base::eofbit);
    EXPECT_EQ("fatal 4C4A0001 input stream is not good()\n", skip(bad));

    TestStreamOptions options;
    options.readSize = 10;
    options.failAt = 50;
    TestStream failing(bytes, options);
    EXPECT_EQ("fatal 4C4A0001 unsuccessful get()\n", skip(failing));

    options = TestStreamOptions();
    options.seekable = false;
    options.readSize = 1;
    TestStream forgetful(bytes, options);
    EXPECT_EQ("fatal 4C4A0001 unsuccessful putback()\n", skip(forgetful));

    TellingBuf buffer(std::string(bytes.begin(), bytes.end()), std::ios_base::in);
    std::istream telling(&buffer);
    EXPECT_EQ("fatal 4C4A0001 unsuccessful seekg()\n", skip(telling));
}
