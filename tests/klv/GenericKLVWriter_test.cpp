#include "klv/RecordedParse.h"
#include "klv/fillItem.h"
#include "klv/writeElements.h"
#include "support/Testing.h"
#include "util/byte_vector_device.h"

#include <boost/algorithm/string/erase.hpp>
#include <boost/iostreams/stream.hpp>

namespace {

TEST(GenericKLVWriter, WritesEachElementByteForByte) {
    Bytes bytes = {0xEE}; // what is written is appended
    boost::iostreams::stream<util::byte_vector_device> out(bytes);
    GenericKLVWriter writer(out);
    const std::uint8_t value[] = {0xCA, 0xFE};
    writer.startStream(true);
    writer.berLengthForm(0x82);
    klvutil::writeIndividualItem(writer, someItemKey, value, 2);
    klvutil::writeFixedLengthPack(writer, someFixedPackKey, {});
    klvutil::writeLocalSet(writer, berLocalSetKey, {{1, {7}}}, 0x82);
    klvutil::writeLocalSet(writer, someLocalSetKey, {{0x3C0A, {1, 2, 3}}, {0xFFFF, {}}}, 0x82);
    klvutil::writeVariableLengthPack(writer, someVariablePackKey, {{9}, {}}, 0x82);
    klvutil::writeFillItem(writer, 3, 1);
    writer.startWrapper(someWrapperKey, 0, true, nullptr);
    writer.startLabel(someLabelKey);
    writer.endStream(false);
    const std::string expected =
        "EE"
        // individual item: key, length in form 82, value
        "060E2B34010101017E01000000000000 820002 CAFE"
        // fixed length pack without a value
        "060E2B34020501017E06000000000000 820000"
        // local set: tag, BER length, value
        "060E2B34021301017E08000000000000 820006 0001 820001 07"
        // local set: tag, length, value of each item, in 2 octets each
        "060E2B34025301017E04000000000000 82000B 3C0A 0003 010203 FFFF 0000"
        // variable length pack: BER length, value of each item
        "060E2B34020401017E05000000000000 820007 820001 09 820000"
        // fill item, in the short form from here on
        "060E2B34010101010301021001000000 03 000000"
        // empty wrapper, and a label: a bare key
        "060E2B34030101017E07000000000000 00 060E2B34040101017E02000000000000";
    out.flush();
    EXPECT_EQ(hex(bytes), boost::erase_all_copy(expected, " "));
}

TEST(GenericKLVWriter, GivesFillItemsTheVersionOfTheStream) {
    const auto fill = [](int version) { return smpteKey({1, 1, 1, version, 3, 1, 2, 0x10, 1}); };
    std::ostringstream out;
    GenericKLVWriter writer(out);
    KLVBytes expected;
    for (const int version : {0, 2, 1}) {
        klvutil::setFillKeyVersion(out, static_cast<std::uint8_t>(version));
        writer.startStream(true);
        writer.berLengthForm(1);
        for (const int given : {1, 2, 9}) {
            writer.startIndividualItem(fill(given), 0, nullptr);
            expected.key(fill(version == 0 ? given : version)).raw({0});
            klvutil::setFillKeyVersion(out, 7); // too late for this stream
        }
        writer.endStream(false);
    }
    EXPECT_EQ(out.str(), expected.text());
}

TEST(GenericKLVWriter, ChecksWhatItIsTold) {
    using W = GenericKLVWriter&;
    using Call = std::function<void(W)>;
    const std::uint8_t data[1] = {};
    const Call item = [](W w) { w.startIndividualItem(someItemKey, 128, nullptr); };
    std::ostringstream out;
    const std::pair<Call, const char*> cases[] = {
        {[](W w) { w.endStream(false), w.endStream(false); }, "has started"},
        {[](W w) { w.berLengthForm(0x80); }, "valid form"},
        {item, "long form"}, // none was told
        {[](W w) { w.startLocalSet(someLocalSetKey, 0, 1, 3); },
         "correct local item type and length"},
        {[&](W w) { w.value(data, 1ULL << 63); }, "valid streamsize"},
        {[](W w) { w.startLocalItem(0x100, 0, nullptr); }, "enough octets"},
        {[&](W w) { out.setstate(std::ios_base::failbit), w.value(data, 1); },
         "successful write()"},
    };
    for (const auto& [call, check] : cases) {
        GenericKLVWriter writer(out);
        writer.startStream(true);
        EXPECT_EQ(failureOf([&, &call = call] { call(writer); }), check);
    }
}

TEST(WriteElements, LeaveOutWhatIsEmptyOrNotWanted) {
    Recording recording;
    KLVRecorder recorder(recording);
    klvutil::writeVariableLengthPack(recorder, someVariablePackKey, {{1}, {}}, 0x83);
    refused(recorder);
    klvutil::writeLocalSet(recorder, someLocalSetKey, {{1, {1}}}, 1);
    klvutil::writeFillItem(recorder, 1ULL << 60, 0x88);
    EXPECT_EQ(recording.text(),
              "startVariableLengthPack 7E05 9 length 0\nstartVariableLengthItem 1\nvalue 1 01\n"
              "endVariableLengthItem\nstartVariableLengthItem 0\nendVariableLengthItem\n"
              "endVariableLengthPack 7E05\nstartLocalSet 7E04 5 tag 1 length 2\nendLocalSet 7E04\n"
              "form 88\nstartIndividualItem fill 1152921504606846976\nendIndividualItem fill\n");
}

} // namespace
