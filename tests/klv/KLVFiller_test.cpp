#include "klv/KLVMonitor.h"
#include "klv/KLVStreamPadder.h"
#include "support/Testing.h"

namespace {

/// A filler whose output is written and counted.
template <class Filler> struct Chain {
    std::ostringstream out;
    GenericKLVWriter writer{out};
    KLVMonitor monitor{writer};
    Filler filler{monitor};

    Chain() { filler.setLocator(&monitor.getLocator()); }

    void send(std::size_t size) {
        const Bytes bytes(size, 0xEE);
        filler.value(bytes.data(), size);
    }
};

TEST(KLVFiller, EndsAStretchInItsSizeOrAlignmentFromWhereItBegan) {
    const char unachievable[] = "achievable padded length";
    const struct {
        std::uint32_t mode;
        std::uint64_t alignment, paddedLength;
        std::uint8_t form;
        std::size_t written;
        int fill; ///< size of the fill item's value; -1 is no fill item
        const char* failure = "";
    } cases[] = {
        {KLVFiller::Pad, 0, 100, 0x83, 100, -1},
        {KLVFiller::Pad, 0, 99, 0x83, 100, -1, unachievable},
        {KLVFiller::Pad, 0, 119, 0x83, 100, -1, unachievable},
        {KLVFiller::Pad, 0, 120, 0x83, 100, 0},
        {KLVFiller::Pad, 0, 118, 0x01, 100, 1},
        {KLVFiller::Pad, 8, 4216, 0x83, 100, 4096}, // one block of zeros
        {KLVFiller::Pad, 0, 8313, 0x83, 100, 8193}, // two, and one byte
        {KLVFiller::Align, 0, 77, 0x83, 100, -1},
        {KLVFiller::Align, 512, 0, 0x83, 0, -1},
        {KLVFiller::Align, 512, 0, 0x83, 512, -1},
        {KLVFiller::Align, 512, 0, 0x83, 491, 1},
        {KLVFiller::Align, 512, 0, 0x83, 492, 0},
        {KLVFiller::Align, 512, 0, 0x83, 493, 511},
        {KLVFiller::Align, 16, 0, 0x83, 8, 4}, // its head alone is longer than the alignment
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        Chain<KLVFiller> chain;
        chain.filler.startStream(true);
        chain.filler.berLengthForm(c.form);
        chain.send(37);
        chain.filler.setFill(c.mode, c.alignment, c.paddedLength);
        chain.filler.startFilledItem();
        chain.send(c.written);
        EXPECT_EQ(failureOf([&] { chain.filler.endFilledItem(); }), c.failure);
        std::string expected(37 + c.written, '\xEE');
        expected +=
            c.fill < 0 ? "" : KLVBytes().fill(static_cast<std::size_t>(c.fill), c.form).text();
        EXPECT_TRUE(chain.out.str() == expected);
        chain.filler.startFilledItem(); // the stretch has ended either way
    }
}

TEST(KLVStreamPadder, MakesEachStreamOneStretchInTheLastFormThatPassed) {
    Chain<KLVStreamPadder> chain;
    chain.filler.setFill(KLVFiller::Align, 64, 0);
    std::string expected;
    const std::pair<std::size_t, int> streams[] = {{10, 36}, {64, -1}, {46, 0}};
    for (const auto& [size, fill] : streams) {
        chain.filler.setLocator(&chain.monitor.getLocator());
        chain.filler.startStream(true);
        chain.filler.berLengthForm(0x83);
        chain.filler.berLengthForm(0x81);
        chain.send(size);
        chain.filler.endStream(false);
        expected += std::string(size, '\xEE');
        expected += fill < 0 ? "" : KLVBytes().fill(static_cast<std::size_t>(fill), 0x81).text();
    }
    EXPECT_EQ(chain.out.str(), expected);
}

} // namespace
