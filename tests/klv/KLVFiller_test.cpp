#include "klv/GenericKLVWriter.h"
#include "klv/KLVMonitor.h"
#include "klv/KLVStreamPadder.h"
#include "support/Failures.h"
#include "support/KLVBytes.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

using Bytes = KLVBytes::Bytes;

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

struct Case {
    std::uint32_t mode;
    std::uint64_t alignment;
    std::uint64_t paddedLength;
    std::uint8_t form;
    std::size_t written;
    int fill; ///< size of the fill item's value; -1 is no fill item
    const char* failure = "";
};

const Case cases[] = {
    {KLVFiller::Pad, 0, 100, 0x83, 100, -1},
    {KLVFiller::Pad, 0, 0, 0x83, 0, -1},
    {KLVFiller::Pad, 0, 99, 0x83, 100, -1, "achievable padded length"},
    {KLVFiller::Pad, 0, 101, 0x83, 100, -1, "achievable padded length"},
    {KLVFiller::Pad, 0, 119, 0x83, 100, -1, "achievable padded length"},
    {KLVFiller::Pad, 0, 120, 0x83, 100, 0},
    {KLVFiller::Pad, 0, 116, 0x01, 100, -1, "achievable padded length"},
    {KLVFiller::Pad, 0, 117, 0x01, 100, 0},
    {KLVFiller::Pad, 0, 121, 0x83, 100, 1},
    {KLVFiller::Pad, 8, 4216, 0x83, 100, 4096}, // one block of zeros
    {KLVFiller::Pad, 0, 8313, 0x83, 100, 8193}, // two, and one byte
    {KLVFiller::Align, 0, 77, 0x83, 100, -1},
    {KLVFiller::Align, 1, 0, 0x83, 100, -1},
    {KLVFiller::Align, 512, 0, 0x83, 0, -1},
    {KLVFiller::Align, 512, 0, 0x83, 512, -1},
    {KLVFiller::Align, 512, 0, 0x83, 491, 1},
    {KLVFiller::Align, 512, 0, 0x83, 492, 0},
    {KLVFiller::Align, 512, 0, 0x83, 493, 511},
    {KLVFiller::Align, 512, 0, 0x83, 500, 504},
    {KLVFiller::Align, 512, 0, 0x88, 487, 0}, // 16 + 9 octets
    {KLVFiller::Align, 16, 0, 0x83, 8, 4},    // its head alone is longer than the alignment
};

TEST(KLVFiller, EndsAStretchInItsSizeOrAlignmentFromWhereItBegan) {
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << "mode " << c.mode << " alignment " << c.alignment << " padded "
                     << c.paddedLength << " written " << c.written);
        Chain<KLVFiller> chain;
        chain.filler.startStream(true);
        chain.filler.berLengthForm(0x85);
        chain.filler.berLengthForm(c.form);
        chain.send(37);
        chain.filler.setFill(c.mode, c.alignment, c.paddedLength);
        chain.filler.startFilledItem();
        chain.send(c.written);
        EXPECT_EQ(failureOf([&] { chain.filler.endFilledItem(); }), c.failure);
        KLVBytes expected;
        expected.raw(Bytes(37 + c.written, 0xEE));
        if (c.fill >= 0) {
            expected.fill(static_cast<std::size_t>(c.fill), c.form);
        }
        EXPECT_TRUE(chain.out.str() == expected.text());
        chain.filler.startFilledItem(); // the stretch has ended either way
    }
}

TEST(KLVFiller, ChecksTheOrderAndWhatItIsGiven) {
    Chain<KLVFiller> chain;
    KLVFiller& filler = chain.filler;
    filler.startStream(true);
    filler.setFill(KLVFiller::Align, 512, 1000);
    EXPECT_EQ(failureOf([&] { filler.setFill(KLVFiller::Pad, 512, 1000); }),
              "padded length is multiple of alignment");
    EXPECT_EQ(filler.getMode(), KLVFiller::Align);
    EXPECT_EQ(filler.getAlignment(), 512);
    EXPECT_EQ(filler.getPaddedLength(), 1000);
    EXPECT_EQ(failureOf([&] { filler.endFilledItem(); }), "in filled item");
    filler.startFilledItem();
    EXPECT_EQ(failureOf([&] { filler.startFilledItem(); }), "not in filled item");
    chain.send(1);
    EXPECT_EQ(failureOf([&] { filler.endFilledItem(); }), "valid BER length form");
    EXPECT_EQ(&filler.getLocator(), &chain.monitor.getLocator());
    filler.endStream(false);
    EXPECT_EQ(failureOf([&] { filler.getLocator(); }), "locator is present");
    EXPECT_EQ(failureOf([&] { filler.startFilledItem(); }), "locator is present");
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
