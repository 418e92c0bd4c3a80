#include "klv/KLVElement.h"
#include "klv/KLVTeller.h"
#include "klv/RecordedParse.h"
#include "klv/berLength.h"
#include "klv/fillItem.h"
#include "klv/streams.h"
#include "support/Testing.h"
#include "util/vector_istream.h"

#include <atomic>

namespace {

/// What a teller's handler sees when whole elements are made and parsed one by one.
TEST(KLVElement, IsMadeForTheFormOfItsKey) {
    const Bytes bytes = everyForm();
    Recording recording;
    KLVRecorder recorder(recording);
    TestStream in(bytes);
    KLVTeller teller(in, recorder);
    std::uint8_t form = klvutil::noBERForm;
    teller.startStream(true);
    while (in.peek() != std::istream::traits_type::eof()) {
        const KLVKey key = klvutil::readKey(in, nullptr);
        klvelements::createKLVElement(key, in, teller, form, teller.getLocator(), true)->parse();
    }
    teller.endStream(false);
    Lines expected = record(bytes);
    expected.erase(std::remove_if(expected.begin(), expected.end(),
                                  [](const std::string& line) {
                                      return line == "startParse" || line == "endParse";
                                  }),
                   expected.end());
    EXPECT_EQ(joined(comparable(recording.lines())), joined(expected));
}

// A line for each element, and for each item in one.
const std::string everyFormWanted =
    "startParse\nsetLocator\nstartStream accurate @0\n"
    "form 01\nstartIndividualItem 7E01 3 @17\nvalue 3 A0 A1 A2 @20\nendIndividualItem 7E01 @20\n"
    "startLabel 7E02 @36\nendLabel 7E02 @36\n"
    "form 81\nstartUniversalSet 7E03 69 @54\n"
    "form 01\nstartIndividualItem 7E01 2 @71\nvalue 2 08 09 @73\nendIndividualItem 7E01 @73\n"
    "startLabel 7E02 @89\nendLabel 7E02 @89\n"
    "startUniversalSet 7E13 17 @106\n"
    "startFixedLengthPack 7E06 0 @123\nendFixedLengthPack 7E06 @123\n"
    "endUniversalSet 7E13 @123\nendUniversalSet 7E03 @123\n"
    "form 81\nstartLocalSet 7E04 11 tag 1 length 2 @141\n"
    "startLocalItem 0102 3 @145\nvalue 3 00 01 02 @148\nendLocalItem 0102 @148\n"
    "startLocalItem FFFF 0 @152\nendLocalItem FFFF @152\nendLocalSet 7E04 @152\n"
    "startLocalSet 7E08 12 tag 1 length 0 @170\n"
    "startLocalItem 0001 1 @174\nvalue 1 05 @175\nendLocalItem 0001 @175\n"
    "form 83\nstartLocalItem 0002 1 @181\nvalue 1 06 @182\nendLocalItem 0002 @182\n"
    "endLocalSet 7E08 @182\nstartVariableLengthPack 7E05 3 length 0 @202\n"
    "form 01\nstartVariableLengthItem 1 @203\nvalue 1 07 @204\nendVariableLengthItem @204\n"
    "startVariableLengthItem 0 @205\nendVariableLengthItem @205\nendVariableLengthPack 7E05 @205\n"
    "form 88\nstartFixedLengthPack 7E06 2 @230\nvalue 2 03 04 @232\nendFixedLengthPack 7E06 @232\n"
    "startWrapper 7E07 1 simple @257\nvalue 1 05 @258\nendWrapper 7E07 @258\n"
    "form 01\nstartWrapper 7E09 0 @275\nendWrapper 7E09 @275\n"
    "startLocalSet 7E0A 9 tag 2 length 3 @292\n"
    "startLocalItem F1020304 1 @300\nvalue 1 06 @301\nendLocalItem F1020304 @301\n"
    "endLocalSet 7E0A @301\n"
    "startIndividualItem fill 0 @318\nendIndividualItem fill @318\nendStream @318\nendParse\n";

const std::string everyFormRefused =
    "startParse\nsetLocator\nstartStream accurate @0\n"
    "form 01\nstartIndividualItem 7E01 3 @17\nendIndividualItem 7E01 @20\n"
    "startLabel 7E02 @36\nendLabel 7E02 @36\n"
    "form 81\nstartUniversalSet 7E03 69 @54\nendUniversalSet 7E03 @123\n"
    "startLocalSet 7E04 11 tag 1 length 2 @141\nendLocalSet 7E04 @152\n"
    "startLocalSet 7E08 12 tag 1 length 0 @170\nendLocalSet 7E08 @182\n"
    "form 83\nstartVariableLengthPack 7E05 3 length 0 @202\nendVariableLengthPack 7E05 @205\n"
    "form 88\nstartFixedLengthPack 7E06 2 @230\nendFixedLengthPack 7E06 @232\n"
    "startWrapper 7E07 1 simple @257\nendWrapper 7E07 @258\n"
    "form 01\nstartWrapper 7E09 0 @275\nendWrapper 7E09 @275\n"
    "startLocalSet 7E0A 9 tag 2 length 3 @292\nendLocalSet 7E0A @301\n"
    "startIndividualItem fill 0 @318\nendIndividualItem fill @318\nendStream @318\nendParse\n";

TEST(GenericKLVReader, ReadsEveryFormAlikeFromFilesAndPipes) {
    for (const TestStreamOptions& options : {aFile, aPipe, {true, 1}}) {
        EXPECT_EQ(joined(record(everyForm(), options)), everyFormWanted);
        EXPECT_EQ(joined(record(everyForm(), options, refused)), everyFormRefused);
    }
    const Bytes bytes = everyForm();
    util::vector_istream in(bytes);
    in.exceptions(std::ios_base::eofbit | std::ios_base::failbit);
    EXPECT_EQ(joined(record(in)), everyFormWanted);
    EXPECT_EQ(in.exceptions(), std::ios_base::eofbit | std::ios_base::failbit);
    EXPECT_EQ(in.rdstate(), std::ios_base::eofbit);
}

TEST(GenericKLVReader, GivesValuesInChunksOrInOneBuffer) {
    const auto sizes = [](std::size_t size, const Configure& configure) {
        std::string text;
        for (const std::string& line :
             record(KLVBytes().klv(someItemKey, Bytes(size)).bytes(), aFile, configure)) {
            text += line.rfind("value", 0) == 0 ? line.substr(6, line.find(' ', 6) - 5) : "";
        }
        return text;
    };
    EXPECT_EQ(sizes(0, wanted), "");
    EXPECT_EQ(sizes(65536, wanted), "65536 ");
    EXPECT_EQ(sizes(200000, wanted), "65536 65536 65536 3392 ");
    EXPECT_EQ(sizes(200000, buffered), "200000 ");
    // Values of no bytes are told only where a buffer came back: one in five forms.
    const Lines lines = record(everyForm(), aFile, buffered);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) { return line.find("value 0") == 0; }),
              5);
}

TEST(GenericKLVReader, KeepsABufferForAPackOnlyAndOverrunsNone) {
    struct BufferHandler : DullKLVHandler {
        std::array<std::uint8_t, 8> buffer{};
        std::string log;

        bool startVariableLengthPack(const KLVKey&, std::uint64_t, LengthType) override {
            return true;
        }
        bool startVariableLengthItem(std::uint64_t, std::uint8_t** to) override {
            log += *to == buffer.data() ? 'k' : *to == nullptr ? '-' : '?';
            *to = buffer.data();
            return true;
        }
        bool startIndividualItem(const KLVKey&, std::uint64_t, std::uint8_t** to) override {
            return startVariableLengthItem(0, to);
        }
        void value(const std::uint8_t* data, std::uint64_t size) override {
            log += data == buffer.data() ? std::to_string(size) : "?";
        }
    } handler;
    const KLVBytes pack = KLVBytes().klv(someVariablePackKey, KLVBytes{1, 9, 2, 8, 7, 0});
    TestStream in(
        KLVBytes(pack).raw(pack).key(someItemKey).length(1ULL << 63, 0x88).raw(Bytes(100)).bytes());
    EXPECT_EQ(failureOf([&] { GenericKLVReader(handler).parse(in); }),
              "4C4A0001 unsuccessful read()");
    EXPECT_EQ(handler.log, "-1k2k0-1k2k0-");
    EXPECT_EQ(handler.buffer, (std::array<std::uint8_t, 8>{8, 7}));
}

TEST(GenericKLVReader, StopsBehindTheElementThatReachesTheLimit) {
    const KLVBytes item = KLVBytes().klv(someItemKey, Bytes(3), 1);
    const std::pair<std::streamoff, int> cases[] = {{0, 1}, {20, 1}, {21, 2}, {60, 3}, {-1, 3}};
    for (const TestStreamOptions& options : {aFile, aPipe}) {
        for (const auto& [stopAt, elements] : cases) {
            SCOPED_TRACE(stopAt);
            TestStream in(KLVBytes(item).raw(item).raw(item).bytes(), options);
            const Lines lines = record(in, wanted, stopAt);
            EXPECT_EQ(lines.at(lines.size() - 2), "endStream @" + std::to_string(20 * elements));
            EXPECT_EQ(in.good(), stopAt >= 0);
            if (elements < 3) { // and can be read on from there, with the form told anew
                const int origin = options.seekable ? 0 : 20 * elements;
                const Lines rest = record(in, wanted, -1, static_cast<std::uint64_t>(origin));
                EXPECT_EQ(std::count(rest.begin(), rest.end(), "form 01"), 1);
                EXPECT_EQ(rest.at(rest.size() - 2), "endStream @60");
            }
        }
    }
}

TEST(GenericKLVReader, StopsBehindTheElementInWhichItIsTold) {
    const std::pair<std::size_t, const char*> cases[] = {
        // the event in which it is told, and the last event of that element at top level
        {1, "startStream accurate @0"},
        {2, "endIndividualItem 7E01 @20"}, // at the form
        {18, "endUniversalSet 7E03 @123"}, // at the end of the set in it
        {22, "endLocalSet 7E04 @152"},     // at an item
    };
    for (const auto& [told, last] : cases) {
        Recording recording;
        KLVRecorder recorder(recording);
        bool stop = false;
        recording.interfere(told, [&stop = stop] { stop = true; });
        TestStream in(everyForm());
        GenericKLVReader(recorder).parse(in, -1, stop);
        const Lines lines = comparable(recording.lines());
        EXPECT_EQ(lines.at(lines.size() - 2), last);
        EXPECT_EQ(lines.back(), "endStream aborted");
        EXPECT_TRUE(in.good());
        EXPECT_EQ(in.buffer().bytesRead() == 0, told == 1);
    }
}

TEST(GenericKLVReader, BreaksOffALongValueWhenAStopIsRequested) {
    const Bytes item = KLVBytes().klv(someItemKey, Bytes(3000000)).bytes();
    struct Case {
        TestStreamOptions options;
        bool wanted;
        std::uint64_t bytesRead;
    };
    for (const Case& each : {Case{aPipe, true, 65536}, Case{aPipe, false, 1 << 20}}) {
        Recording recording;
        KLVRecorder recorder(recording);
        recorder.want(each.wanted ? Wants::Everything : Wants::Nothing);
        std::atomic<bool> request(false);
        recording.interfere(3, [&] { request = true; });
        TestStream in(item, each.options);
        GenericKLVReader reader(recorder);
        reader.setStopRequest(&request);
        reader.parse(in);
        EXPECT_EQ(recording.lines().back().rfind("endStream aborted", 0), 0U);
        EXPECT_EQ(recording.lines().size(), each.wanted ? 6U : 5U) << recording.text();
        EXPECT_LT(in.buffer().bytesRead(), each.bytesRead + 5000);
        EXPECT_TRUE(in.good());
    }
}

TEST(GenericKLVReader, TakesTheFillKeyVersionOfTheStream) {
    TestStream in(KLVBytes().fill(0, 1).bytes());
    klvutil::setFillKeyVersion(in, 2);
    const Lines lines = record(in);
    EXPECT_EQ(lines.at(4), "warning 4C4B0004 @17 unexpected fill item key version - 0x01");
    EXPECT_EQ(lines.at(5), "startIndividualItem fill 0 @17");
}

} // namespace
