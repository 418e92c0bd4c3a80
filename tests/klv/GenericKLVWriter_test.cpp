#include "klv/GenericKLVWriter.h"

#include "klv/RecordedParse.h"
#include "klv/everyForm.h"
#include "klv/fillItem.h"
#include "klv/writeElements.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vexa/klv/DullKLVHandler.h>

namespace {

std::string copyOf(const Bytes& bytes, const std::string& expectedFailure = {}) {
    std::ostringstream out;
    GenericKLVWriter writer(out);
    TestStream in(bytes);
    EXPECT_EQ(failureOf([&] { GenericKLVReader(writer).parse(in); }), expectedFailure);
    return out.str();
}

bool same(const std::string& text, const Bytes& bytes) {
    return text == std::string(bytes.begin(), bytes.end());
}

TEST(GenericKLVWriter, CopiesWhatAReaderReads) {
    const Bytes bytes = together(everyForm()).bytes();
    EXPECT_TRUE(same(copyOf(bytes), bytes));
    int copied = 0;
    for (const std::string& name : testDataNames()) {
        const Bytes file = withoutRunIn(testData(name));
        if (name.find("truncated") == std::string::npos) {
            EXPECT_TRUE(same(copyOf(file), file)) << name;
            ++copied;
        } else { // all up to the chunk that is cut
            const std::string copy = copyOf(file, "4C4A0001 unsuccessful read()");
            EXPECT_LT(file.size() - copy.size(), 65536U) << name;
            EXPECT_EQ(copy, std::string(file.begin(), file.end()).substr(0, copy.size())) << name;
        }
    }
    EXPECT_GE(copied, 8);
}

TEST(GenericKLVWriter, WritesEachElementByteForByte) {
    std::ostringstream out;
    GenericKLVWriter writer(out);
    const std::uint8_t value[] = {0xCA, 0xFE};
    writer.startStream(true);
    writer.berLengthForm(0x82);
    klvutil::writeIndividualItem(writer, someItemKey, value, 2);
    klvutil::writeFixedLengthPack(writer, someFixedPackKey, {});
    klvutil::writeLocalSet(writer, someLocalSetKey, {{0x3C0A, {1, 2, 3}}, {0xFFFF, {}}}, 0x82);
    klvutil::writeLocalSet(writer, berLocalSetKey, {{1, {7}}}, 0x82);
    klvutil::writeVariableLengthPack(writer, someVariablePackKey, {{9}, {}}, 0x82);
    klvutil::writeFillItem(writer, 3, 1);
    writer.startWrapper(someWrapperKey, 0, true, nullptr);
    writer.startLabel(someLabelKey);
    writer.endStream(false);
    const KLVBytes expected{
        // individual item: key, length in form 82, value
        6, 0x0E, 0x2B, 0x34, 1, 1, 1, 1, 0x7E, 1, 0, 0, 0, 0, 0, 0, //
        0x82, 0, 2, 0xCA, 0xFE,
        // fixed length pack without a value
        6, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x7E, 6, 0, 0, 0, 0, 0, 0, //
        0x82, 0, 0,
        // local set of 11 bytes: tag, length, value of each item, in 2 octets each
        6, 0x0E, 0x2B, 0x34, 2, 0x53, 1, 1, 0x7E, 4, 0, 0, 0, 0, 0, 0, //
        0x82, 0, 11, 0x3C, 0x0A, 0, 3, 1, 2, 3, 0xFF, 0xFF, 0, 0,
        // local set of 6 bytes: tag, BER length, value
        6, 0x0E, 0x2B, 0x34, 2, 0x13, 1, 1, 0x7E, 8, 0, 0, 0, 0, 0, 0, //
        0x82, 0, 6, 0, 1, 0x82, 0, 1, 7,
        // variable length pack of 7 bytes: BER length, value of each item
        6, 0x0E, 0x2B, 0x34, 2, 4, 1, 1, 0x7E, 5, 0, 0, 0, 0, 0, 0, //
        0x82, 0, 7, 0x82, 0, 1, 9, 0x82, 0, 0,
        // fill item, in the short form from here on
        6, 0x0E, 0x2B, 0x34, 1, 1, 1, 1, 3, 1, 2, 0x10, 1, 0, 0, 0, //
        3, 0, 0, 0,
        // empty wrapper
        6, 0x0E, 0x2B, 0x34, 3, 1, 1, 1, 0x7E, 7, 0, 0, 0, 0, 0, 0, //
        0,
        // label: a bare key
        6, 0x0E, 0x2B, 0x34, 4, 1, 1, 1, 0x7E, 2, 0, 0, 0, 0, 0, 0};
    EXPECT_TRUE(same(out.str(), expected.bytes()));
}

TEST(GenericKLVWriter, WritesTagsAndLengthsInTheWidthsOfTheirSet) {
    const int byte5[3][3] = {{0x23, 0x33, 0x3B}, {0x43, 0x53, 0x5B}, {0x63, 0x73, 0x7B}};
    for (std::uint32_t lengthType = 1; lengthType <= 3; ++lengthType) {
        for (std::uint32_t tagType = 0; tagType < 3; ++tagType) {
            const int tagOctets = 1 << tagType, lengthOctets = 1 << (lengthType - 1);
            const std::uint64_t mostTag = (1ULL << 8 * tagOctets) - 1;
            const std::uint64_t mostLength = (1ULL << 8 * lengthOctets) - 1;
            const KLVKey key = smpteKey({2, byte5[lengthType - 1][tagType]});
            std::ostringstream out;
            GenericKLVWriter writer(out);
            writer.startStream(true);
            writer.berLengthForm(1);
            writer.startLocalSet(key, 0, tagType, lengthType);
            writer.startLocalItem(static_cast<std::uint32_t>(mostTag), mostLength, nullptr);
            const KLVBytes expected = KLVBytes()
                                          .key(key)
                                          .length(0, 1)
                                          .number(mostTag, tagOctets)
                                          .number(mostLength, lengthOctets);
            EXPECT_TRUE(same(out.str(), expected.bytes())) << tagType << ' ' << lengthType;
            if (tagType != 2) {
                EXPECT_EQ(failureOf([&] {
                              writer.startLocalItem(static_cast<std::uint32_t>(mostTag + 1), 0,
                                                    nullptr);
                          }),
                          "enough octets");
            }
            EXPECT_EQ(failureOf([&] { writer.startLocalItem(0, mostLength + 1, nullptr); }),
                      "enough octets");
        }
    }
}

TEST(GenericKLVWriter, GivesFillItemsTheVersionOfTheStream) {
    const auto fill = [](int version) { return smpteKey({1, 1, 1, version, 3, 1, 2, 0x10, 1}); };
    std::ostringstream out;
    GenericKLVWriter writer(out);
    std::string expected;
    for (const std::uint8_t version : std::initializer_list<std::uint8_t>{0, 2, 1}) {
        klvutil::setFillKeyVersion(out, version);
        writer.startStream(true);
        writer.berLengthForm(1);
        for (const int given : {1, 2, 9}) {
            writer.startIndividualItem(fill(given), 0, nullptr);
            expected += KLVBytes().key(fill(version == 0 ? given : version)).length(0, 1).text();
            klvutil::setFillKeyVersion(out, 7); // too late for this stream
        }
        writer.startIndividualItem(someItemKey, 0, nullptr);
        expected += KLVBytes().key(someItemKey).length(0, 1).text();
        writer.endStream(false);
    }
    EXPECT_EQ(out.str(), expected);
}

TEST(GenericKLVWriter, ChecksWhatItIsTold) {
    using Call = std::function<void(GenericKLVWriter&)>;
    struct Case {
        Call call;
        const char* check;
    };
    const std::uint8_t data[1] = {};
    const Call item = [](GenericKLVWriter& w) { w.startIndividualItem(someItemKey, 128, nullptr); };
    const Call localSet = [](GenericKLVWriter& w) { w.startLocalSet(someLocalSetKey, 0, 1, 2); };
    const Call contents[] = {
        item,
        localSet,
        [](GenericKLVWriter& w) { w.startLabel(someLabelKey); },
        [](GenericKLVWriter& w) { w.startUniversalSet(someUniversalSetKey, 0); },
        [](GenericKLVWriter& w) { w.startLocalItem(0, 0, nullptr); },
        [](GenericKLVWriter& w) { w.startFixedLengthPack(someFixedPackKey, 0, nullptr); },
        [](GenericKLVWriter& w) { w.startVariableLengthPack(someVariablePackKey, 0, 0); },
        [](GenericKLVWriter& w) { w.startVariableLengthItem(0, nullptr); },
        [](GenericKLVWriter& w) { w.startWrapper(someWrapperKey, 0, true, nullptr); },
        [&](GenericKLVWriter& w) { w.value(data, 0); },
    };
    std::ostringstream out;
    for (const Call& content : contents) {
        GenericKLVWriter writer(out);
        EXPECT_EQ(failureOf([&] { content(writer); }), "has started");
        EXPECT_EQ(out.str(), "");
        std::ostringstream broken;
        GenericKLVWriter toBroken(broken);
        toBroken.startStream(true);
        toBroken.berLengthForm(0x83);
        broken.setstate(std::ios_base::failbit);
        EXPECT_EQ(failureOf([&] { content(toBroken); }), "successful write()");
    }
    const Case cases[] = {
        {[](GenericKLVWriter& w) { w.startStream(true); }, "has not started"},
        {[](GenericKLVWriter& w) { w.endStream(false), w.endStream(false); }, "has started"},
        {[](GenericKLVWriter& w) { w.endStream(true), w.startStream(false); },
         "unbuffered output is possible"},
        {[](GenericKLVWriter& w) { w.berLengthForm(0x80); }, "valid form"},
        {[](GenericKLVWriter& w) { w.berLengthForm(0x7F); }, "valid form"},
        {[](GenericKLVWriter& w) { w.berLengthForm(0); }, "valid form"},
        {item, "long form"}, // none was told
        {[&](GenericKLVWriter& w) { w.berLengthForm(1), item(w); }, "valid short form length"},
        {[&](GenericKLVWriter& w) { w.berLengthForm(0x89), item(w); }, "valid long form"},
        {[](GenericKLVWriter& w) { w.startLocalSet(someLocalSetKey, 0, 2, 2); },
         "correct local item type and length"},
        {[](GenericKLVWriter& w) { w.startLocalSet(someLocalSetKey, 0, 1, 3); },
         "correct local item type and length"},
        {[](GenericKLVWriter& w) {
             w.startLocalSet(smpteKey({2, 0x0B}), 0, 0, 0);
         },
         "correct local item type and length"},
        {[&](GenericKLVWriter& w) { w.value(data, 1ULL << 63); }, "valid streamsize"},
    };
    for (const Case& c : cases) {
        std::ostringstream unused;
        GenericKLVWriter writer(unused);
        writer.startStream(true);
        EXPECT_EQ(failureOf([&] { c.call(writer); }), c.check);
    }
}

TEST(WriteElements, LeaveOutWhatIsNotWanted) {
    Recording recording;
    KLVRecorder recorder(recording);
    recorder.setWanted(false);
    const std::uint8_t data[1] = {};
    klvutil::writeIndividualItem(recorder, someItemKey, data, 1);
    klvutil::writeFixedLengthPack(recorder, someFixedPackKey, {1});
    klvutil::writeLocalSet(recorder, someLocalSetKey, {{1, {1}}}, 1);
    klvutil::writeVariableLengthPack(recorder, someVariablePackKey, {{1}}, 0x83);
    klvutil::writeFillItem(recorder, 1ULL << 60, 0x88);
    EXPECT_EQ(recording.text(), R"(startIndividualItem 7E01 1
endIndividualItem 7E01
startFixedLengthPack 7E06 1
endFixedLengthPack 7E06
startLocalSet 7E04 5 tag 1 length 2
endLocalSet 7E04
startVariableLengthPack 7E05 5 length 0
endVariableLengthPack 7E05
form 88
startIndividualItem fill 1152921504606846976
endIndividualItem fill
)");
    EXPECT_EQ(failureOf([&] {
                  klvutil::writeLocalSet(recorder, smpteKey({2, 0x0B}), {}, 1);
              }),
              "valid local set key");
    EXPECT_EQ(failureOf([&] {
                  klvutil::writeVariableLengthPack(recorder, smpteKey({2, 0x0C}), {}, 1);
              }),
              "valid variable length pack key");
}

} // namespace
