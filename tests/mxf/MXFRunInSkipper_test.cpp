#include "mxf/FileRecorders.h"
#include "mxf/MXFRunInSkipper.h"
#include "support/Testing.h"

namespace {

constexpr std::uint32_t longest = MXFRunInSkipper::longestRunIn;

KLVBytes zeros(std::size_t count) {
    return KLVBytes().raw(Bytes(count));
}

} // namespace

TEST(MXFRunInSkipper, FindsThePackBehindARunIn) {
    const std::string invalid = "fatal 4C4C0002 invalid run-in\n4C4C0002 invalid run-in";
    const KLVBytes almost = KLVBytes({0x06, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1});
    const std::pair<KLVBytes, std::string> rows[] = {
        {KLVBytes(), ""},
        {zeros(1), "runIn 1\n"},
        {zeros(longest), "runIn 65535\n"},
        {zeros(longest + 1), invalid},
        // False starts, broken by another byte, by the first of the pattern, and late.
        {KLVBytes({0x06, 0x0E, 0x2B, 0x34, 2, 0xFF}), "runIn 6\n"},
        {KLVBytes({0x06, 0x0E, 0x2B, 0x34, 2}), "runIn 5\n"},
        {KLVBytes(almost).raw(almost).raw(almost), "runIn 30\n"},
        // A match that began within the limit is followed to its end, and no other.
        {zeros(longest - 1).raw({6}), "runIn 65535\n"},
        {zeros(longest).raw({6}), invalid},
    };
    for (const auto& [runIn, expected] : rows) {
        for (const bool seekable : {true, false}) {
            TestStream in(KLVBytes(runIn).raw(soundFile().bytes()).bytes(), {seekable});
            const std::string events = FileRecorders(false).read(in);
            EXPECT_EQ(expected, events.substr(0, events.find("startParse"))) << runIn.size();
            EXPECT_EQ(expected != invalid, events.find("endStructure\n") != std::string::npos);
        }
    }
}

TEST(MXFRunInSkipper, ReadsNoFurtherThanItMay) {
    TestStream in(Bytes(200000), {true, 1});
    EXPECT_EQ("fatal 4C4C0002 invalid run-in\n4C4C0002 invalid run-in", FileRecorders().read(in));
    EXPECT_EQ(longest + 1U, in.buffer().bytesRead());
}

TEST(MXFRunInSkipper, ReportsAStreamThatFails) {
    const Bytes file = zeros(100).raw(soundFile().bytes()).bytes();
    TestStream failing(file, {true, 10, 50});
    EXPECT_EQ("fatal 4C4A0001 unsuccessful get()\n4C4A0001 unsuccessful get()",
              FileRecorders().read(failing));
    TestStream forgetful(file, {false, 1});
    EXPECT_EQ("4C4A0001 unsuccessful putback()",
              failureOf([&] { MXFRunInSkipper().skip(forgetful, longest); }));
}
