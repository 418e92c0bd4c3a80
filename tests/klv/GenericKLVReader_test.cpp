#include "klv/GenericKLVReader.h"

#include "klv/ActionKLVFilter.h"
#include "klv/GenericKLVWriter.h"
#include "klv/RecordedParse.h"
#include "klv/everyForm.h"
#include "klv/fillItem.h"
#include "support/AllocationCount.h"
#include "util/vector_istream.h"

#include <array>
#include <gtest/gtest.h>
#include <vexa/klv/DullKLVHandler.h>

namespace {

const char everyFormWanted[] = R"(startParse
setLocator
startStream accurate @0
form 01
startIndividualItem 7E01 3 @17
value 3 A0 A1 A2 @20
endIndividualItem 7E01 @20
startLabel 7E02 @36
endLabel 7E02 @36
form 81
startUniversalSet 7E03 69 @54
form 01
startIndividualItem 7E01 2 @71
value 2 08 09 @73
endIndividualItem 7E01 @73
startLabel 7E02 @89
endLabel 7E02 @89
startUniversalSet 7E13 17 @106
startFixedLengthPack 7E06 0 @123
endFixedLengthPack 7E06 @123
endUniversalSet 7E13 @123
endUniversalSet 7E03 @123
form 81
startLocalSet 7E04 11 tag 1 length 2 @141
startLocalItem 0102 3 @145
value 3 00 01 02 @148
endLocalItem 0102 @148
startLocalItem FFFF 0 @152
endLocalItem FFFF @152
endLocalSet 7E04 @152
startLocalSet 7E08 12 tag 1 length 0 @170
startLocalItem 0001 1 @174
value 1 05 @175
endLocalItem 0001 @175
form 83
startLocalItem 0002 1 @181
value 1 06 @182
endLocalItem 0002 @182
endLocalSet 7E08 @182
startVariableLengthPack 7E05 3 length 0 @202
form 01
startVariableLengthItem 1 @203
value 1 07 @204
endVariableLengthItem @204
startVariableLengthItem 0 @205
endVariableLengthItem @205
endVariableLengthPack 7E05 @205
form 88
startFixedLengthPack 7E06 2 @230
value 2 03 04 @232
endFixedLengthPack 7E06 @232
startWrapper 7E07 1 simple @257
value 1 05 @258
endWrapper 7E07 @258
form 01
startWrapper 7E09 0 @275
endWrapper 7E09 @275
startLocalSet 7E0A 9 tag 2 length 3 @292
startLocalItem F1F2F3F4 1 @300
value 1 06 @301
endLocalItem F1F2F3F4 @301
endLocalSet 7E0A @301
startIndividualItem fill 2 @318
value 2 00 00 @320
endIndividualItem fill @320
endStream @320
endParse
)";

const char everyFormRefused[] = R"(startParse
setLocator
startStream accurate @0
form 01
startIndividualItem 7E01 3 @17
endIndividualItem 7E01 @20
startLabel 7E02 @36
endLabel 7E02 @36
form 81
startUniversalSet 7E03 69 @54
endUniversalSet 7E03 @123
startLocalSet 7E04 11 tag 1 length 2 @141
endLocalSet 7E04 @152
startLocalSet 7E08 12 tag 1 length 0 @170
endLocalSet 7E08 @182
form 83
startVariableLengthPack 7E05 3 length 0 @202
endVariableLengthPack 7E05 @205
form 88
startFixedLengthPack 7E06 2 @230
endFixedLengthPack 7E06 @232
startWrapper 7E07 1 simple @257
endWrapper 7E07 @258
form 01
startWrapper 7E09 0 @275
endWrapper 7E09 @275
startLocalSet 7E0A 9 tag 2 length 3 @292
endLocalSet 7E0A @301
startIndividualItem fill 2 @318
endIndividualItem fill @320
endStream @320
endParse
)";

TEST(GenericKLVReader, ReadsEveryFormAlikeFromFilesAndPipes) {
    const KLVBytes bytes = together(everyForm());
    for (const bool seekable : {true, false}) {
        for (const std::size_t readSize : {1U, 7U, 4096U}) {
            SCOPED_TRACE(testing::Message() << seekable << ' ' << readSize);
            const TestStreamOptions options{seekable, readSize};
            EXPECT_EQ(joined(record(bytes, options)), everyFormWanted);
            EXPECT_EQ(joined(record(bytes, options, refused)), everyFormRefused);
        }
    }
    util::vector_istream in(bytes.bytes());
    in.exceptions(std::ios_base::eofbit | std::ios_base::failbit);
    EXPECT_EQ(joined(record(in)), everyFormWanted);
    EXPECT_EQ(in.exceptions(), std::ios_base::eofbit | std::ios_base::failbit);
}

TEST(GenericKLVReader, CountsFromItsOriginWhereTheStreamCannotTell) {
    const KLVBytes bytes = KLVBytes().klv(someItemKey, KLVBytes{1}, 1);
    TestStream asked(bytes.bytes(), aFile), counted(bytes.bytes(), aPipe);
    EXPECT_EQ(record(asked, wanted, -1, 1000).at(4), "startIndividualItem 7E01 1 @17");
    EXPECT_EQ(record(counted, wanted, -1, 1000).at(4), "startIndividualItem 7E01 1 @1017");
}

TEST(GenericKLVReader, GivesValuesInChunksOrInOneBuffer) {
    const auto sizes = [](std::size_t size, const Configure& configure) {
        std::string text;
        for (const std::string& line :
             record(KLVBytes().klv(someItemKey, Bytes(size)), aFile, configure)) {
            text += line.rfind("value", 0) == 0 ? line.substr(6, line.find(' ', 6) - 5) : "";
        }
        return text;
    };
    EXPECT_EQ(sizes(0, wanted), "");
    EXPECT_EQ(sizes(65535, wanted), "65535 ");
    EXPECT_EQ(sizes(65536, wanted), "65536 ");
    EXPECT_EQ(sizes(65537, wanted), "65536 1 ");
    EXPECT_EQ(sizes(200000, wanted), "65536 65536 65536 3392 ");
    EXPECT_EQ(sizes(0, buffered), "0 ");
    EXPECT_EQ(sizes(200000, buffered), "200000 ");
}

/// Takes items into one small buffer, and notes which pointer it was given at each.
struct BufferHandler : DullKLVHandler {
    std::array<std::uint8_t, 8> buffer{};
    std::string log;

    bool start(std::uint8_t** to) {
        log += *to == buffer.data() ? 'k' : *to == nullptr ? '-' : '?';
        *to = buffer.data();
        return true;
    }
    bool startIndividualItem(const KLVKey&, std::uint64_t, std::uint8_t** to) override {
        return start(to);
    }
    bool startVariableLengthPack(const KLVKey&, std::uint64_t, LengthType) override { return true; }
    bool startVariableLengthItem(std::uint64_t, std::uint8_t** to) override { return start(to); }
    bool startLocalSet(const KLVKey&, std::uint64_t, TagType, LengthType) override { return true; }
    bool startLocalItem(std::uint32_t, std::uint64_t, std::uint8_t** to) override {
        return start(to);
    }
    void value(const std::uint8_t* data, std::uint64_t size) override {
        EXPECT_EQ(data, buffer.data());
        log += std::to_string(size);
    }
};

TEST(GenericKLVReader, KeepsABufferForTheItemsOfAVariableLengthPackOnly) {
    const KLVBytes pack = KLVBytes().klv(someVariablePackKey, KLVBytes{1, 9, 2, 8, 7, 0});
    BufferHandler handler;
    TestStream in(KLVBytes(pack).raw(pack).klv(someLocalSetKey, Bytes(8)).bytes());
    GenericKLVReader(handler).parse(in);
    EXPECT_EQ(handler.log, "-1k2k0-1k2k0-0-0");
    EXPECT_EQ(handler.buffer, (std::array<std::uint8_t, 8>{8, 7}));
}

TEST(GenericKLVReader, WritesNothingIntoABufferForALengthThatNoBufferCanHave) {
    BufferHandler handler;
    TestStream in(KLVBytes().key(someItemKey).length(1ULL << 63, 0x88).raw(Bytes(100, 1)).bytes());
    EXPECT_EQ(failureOf([&] { GenericKLVReader(handler).parse(in); }),
              "4C4A0001 unsuccessful read()");
    EXPECT_EQ(handler.log, "-");
    EXPECT_EQ(handler.buffer, (std::array<std::uint8_t, 8>{}));
}

TEST(GenericKLVReader, ReadsNothingOfAValueThatNobodyWants) {
    constexpr std::uint64_t count = 40;
    const KLVBytes element = KLVBytes().klv(someItemKey, Bytes(100000));
    TestStream in(together(std::vector<KLVBytes>(count, element)).bytes());
    DullKLVHandler handler;
    GenericKLVReader(handler).parse(in);
    EXPECT_LE(in.buffer().bytesRead(), count * 4096);
    EXPECT_LE(in.buffer().seeks(), 2 * count);
}

TEST(GenericKLVReader, StopsBehindTheElementThatReachesTheLimit) {
    const KLVBytes item = KLVBytes().klv(someItemKey, Bytes(3), 1);
    const Bytes bytes = together({item, item, item}).bytes();
    const std::pair<std::streamoff, int> cases[] = {{0, 1},  {19, 1}, {20, 1}, {21, 2},
                                                    {40, 2}, {60, 3}, {99, 3}, {-1, 3}};
    for (const TestStreamOptions& options : {aFile, aPipe}) {
        for (const auto& [stopAt, elements] : cases) {
            SCOPED_TRACE(stopAt);
            TestStream in(bytes, options);
            const std::vector<std::string> lines = record(in, wanted, stopAt);
            EXPECT_EQ(std::count(lines.begin(), lines.end(), "form 01"), 1);
            EXPECT_EQ(lines.at(lines.size() - 2), "endStream @" + std::to_string(20 * elements));
            EXPECT_EQ(in.good(), stopAt <= 60 && stopAt >= 0);
            if (elements < 3) { // and can be read on from there, with the form told anew
                const std::uint64_t origin =
                    options.seekable ? 0 : 20 * static_cast<unsigned>(elements);
                const std::vector<std::string> rest = record(in, wanted, -1, origin);
                EXPECT_EQ(std::count(rest.begin(), rest.end(), "form 01"), 1);
                EXPECT_EQ(rest.at(rest.size() - 2), "endStream @60");
            }
        }
    }
}

TEST(GenericKLVReader, StopsBehindTheElementInWhichItIsTold) {
    const Bytes bytes = together(everyForm()).bytes();
    const std::pair<const char*, const char*> cases[] = {
        // where it is told, and the last event of that element at top level
        {"startStream accurate @0", "startStream accurate @0"},
        {"form 01", "endIndividualItem 7E01 @20"},
        {"endIndividualItem 7E01 @20", "endIndividualItem 7E01 @20"},
        {"startLabel 7E02 @36", "endLabel 7E02 @36"},
        {"form 81", "endUniversalSet 7E03 @123"},
        {"endUniversalSet 7E13 @123", "endUniversalSet 7E03 @123"},
        {"startLocalItem 0102 3 @145", "endLocalSet 7E04 @152"},
    };
    const Lines whole = record(KLVBytes().raw(bytes));
    for (const auto& [told, last] : cases) {
        SCOPED_TRACE(told);
        Recording recording;
        KLVRecorder recorder(recording);
        bool stop = false;
        // Behind startParse, which isn't recorded here.
        recording.interfere(
            static_cast<std::size_t>(std::find(whole.begin(), whole.end(), told) - whole.begin()) -
                1,
            [&] { stop = true; });
        TestStream in(bytes);
        GenericKLVReader(recorder).parse(in, -1, stop);
        const Lines lines = comparable(recording);
        EXPECT_EQ(lines.at(lines.size() - 2), last);
        EXPECT_EQ(lines.back(), "endStream aborted");
        EXPECT_TRUE(in.good());
        EXPECT_EQ(in.buffer().bytesRead() == 0, lines.size() == 3);
    }
}

TEST(GenericKLVReader, TakesTheFillKeyVersionOfTheStream) {
    const KLVBytes bytes = KLVBytes().fill(0, 1).fill(0);
    TestStream in(bytes.bytes());
    klvutil::setFillKeyVersion(in, 2);
    const std::vector<std::string> lines = record(in);
    const std::string warning = "warning 4C4B0004 @17 unexpected fill item key version - 0x01";
    EXPECT_EQ(std::count(lines.begin(), lines.end(), warning), 1);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) { return line[0] == 'w'; }),
              1);
}

TEST(GenericKLVReader, AllocatesNothingForAnElementOnTheWayIntoAWriter) {
    struct NullBuffer : std::streambuf {
        int_type overflow(int_type c) override { return traits_type::not_eof(c); }
        std::streamsize xsputn(const char*, std::streamsize size) override { return size; }
    } nowhere;
    struct Probe : ActionKLVFilter {
        using ActionKLVFilter::ActionKLVFilter;
        void preAction() override {
            ++events;
            (events == 100 ? before : events == 5000 ? after : ignored) = allocationCount();
        }
        void postAction() override {}
        std::uint64_t events = 0, before = 0, after = 0, ignored = 0;
    };
    std::ostream out(&nowhere);
    const KLVBytes bytes = together(everyForm());
    for (const TestStreamOptions& options : {aFile, aPipe}) {
        TestStream in(together(std::vector<KLVBytes>(100, bytes)).bytes(), options);
        GenericKLVWriter writer(out);
        Probe probe(writer);
        GenericKLVReader(probe).parse(in);
        EXPECT_GT(probe.events, 5000U);
        EXPECT_GT(probe.before, 0U);
        EXPECT_EQ(probe.after, probe.before);
    }
}

} // namespace
