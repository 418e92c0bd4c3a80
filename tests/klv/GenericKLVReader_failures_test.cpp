#include "klv/GenericKLVReader.h"

#include "klv/RecordedParse.h"
#include "klv/everyForm.h"
#include "util/vector_istream.h"

#include <gtest/gtest.h>
#include <set>
#include <vexa/klv/DullKLVHandler.h>
#include <vexa/klv/parse_error.h>

namespace {

struct FailureCase {
    KLVBytes bytes;
    std::string events; ///< behind startStream
    std::string failure;
    std::string position;
};

const char badRead[] = "4C4A0001 unsuccessful read()";
const char badKey[] = "4C4B0001 invalid SMPTE key - ";
const char badCoding[] = "4C4B0001 unimplemented SMPTE KLV coding - ";

KLVBytes goodItem() {
    return KLVBytes().klv(someItemKey, KLVBytes{1}, 1);
}

std::vector<FailureCase> failureCases() {
    const std::string goodItemEvents = "form 01\nstartIndividualItem 7E01 1 @17\nvalue 1 01 @18\n"
                                       "endIndividualItem 7E01 @18\n";
    return {
        // Ends of the data: nothing at all, in a key, in a length, in a value, between chunks.
        {{}, "", badRead, "0"},
        {goodItem().raw({6, 0x0E, 0x2B}), goodItemEvents, badRead, "18"},
        {goodItem().key(someItemKey), goodItemEvents, badRead, "18"},
        {KLVBytes().key(someItemKey).raw({0x83, 0, 0}), "", badRead, "0"},
        {KLVBytes().key(someItemKey).length(5, 1).raw({1, 2, 3, 4}),
         "form 01\nstartIndividualItem 7E01 5 @17\n", badRead, "17"},
        {KLVBytes().key(someItemKey).length(65537, 0x83).raw(Bytes(65536, 1)),
         "form 83\nstartIndividualItem 7E01 65537 @20\nvalue 65536 01 01 01 01 @65556\n", badRead,
         "65556"},
        {KLVBytes().key(someItemKey).length(1ULL << 63, 0x88).raw({1}),
         "form 88\nstartIndividualItem 7E01 9223372036854775808 @25\n", badRead, "25"},
        // Lengths and keys that are none.
        {KLVBytes().key(someItemKey).raw({0x80, 0, 0}), "", "4C4B0002 invalid BER long form - 0x80",
         "0"},
        {KLVBytes().key(someItemKey).raw({0x89}), "", "4C4B0002 invalid BER long form - 0x89", "0"},
        {goodItem().raw(Bytes(20)), goodItemEvents,
         badKey + std::string("00.00.00.00.00.00.00.00.00.00.00.00.00.00.00.00"), "18"},
        {KLVBytes().klv(smpteKey({2, 2, 1, 1, 0x7E}), KLVBytes{1}), "",
         badCoding + std::string("06.0E.2B.34.02.02.01.01.7E.00.00.00.00.00.00.00"), "0"},
        {KLVBytes().klv(smpteKey({2, 0x0B}), KLVBytes{1}), "",
         "4C4B0001 invalid local set type - 0x0B", "0"},
        {KLVBytes().klv(smpteKey({2, 0x0C}), KLVBytes{1}), "",
         "4C4B0001 invalid variable length pack type - 0x0C", "0"},
        {KLVBytes().klv(smpteKey({3, 3}), KLVBytes{1}), "", "4C4B0001 invalid wrapper type - 0x03",
         "0"},
        // A local set: an item overruns it, a tag and a length are cut.
        {KLVBytes().key(someLocalSetKey).length(6, 1).raw({0, 1, 0, 3, 7, 8, 9}),
         "form 01\nstartLocalSet 7E04 6 tag 1 length 2 @17\nstartLocalItem 0001 3 @21\n"
         "value 3 07 08 09 @24\nendLocalItem 0001 @24\n",
         "4C4B0003 incorrect local set length", "24"},
        {KLVBytes().key(someLocalSetKey).length(5, 1).raw({0}),
         "form 01\nstartLocalSet 7E04 5 tag 1 length 2 @17\n", badRead, "17"},
        {KLVBytes().key(someLocalSetKey).length(5, 1).raw({0, 1, 0}),
         "form 01\nstartLocalSet 7E04 5 tag 1 length 2 @17\n", badRead, "17"},
        {KLVBytes().key(berLocalSetKey).length(9, 1).raw({0, 1, 0x8A}),
         "form 01\nstartLocalSet 7E08 9 tag 1 length 0 @17\n",
         "4C4B0002 invalid BER long form - 0x8A", "17"},
        {KLVBytes().key(someVariablePackKey).length(2, 1).raw({2, 8, 9}),
         "form 01\nstartVariableLengthPack 7E05 2 length 0 @17\nstartVariableLengthItem 2 @18\n"
         "value 2 08 09 @20\nendVariableLengthItem @20\n",
         "4C4B0003 incorrect variable length pack length", "20"},
        // A universal set: an element overruns it, a key in it is none, it ends early, and a set
        // that is right in itself overruns the one around it.
        {KLVBytes().key(someUniversalSetKey).length(10, 1).key(someLabelKey),
         "form 01\nstartUniversalSet 7E03 10 @17\nstartLabel 7E02 @33\nendLabel 7E02 @33\n",
         "4C4B0003 incorrect universal set length", "33"},
        {KLVBytes().key(someUniversalSetKey).length(16, 1).raw(Bytes(16, 0x2B)),
         "form 01\nstartUniversalSet 7E03 16 @17\n",
         badKey + std::string("2B.2B.2B.2B.2B.2B.2B.2B.2B.2B.2B.2B.2B.2B.2B.2B"), "17"},
        {KLVBytes().key(someUniversalSetKey).length(32, 1).key(someLabelKey),
         "form 01\nstartUniversalSet 7E03 32 @17\nstartLabel 7E02 @33\nendLabel 7E02 @33\n",
         badRead, "33"},
        {KLVBytes()
             .key(someUniversalSetKey)
             .length(17, 1)
             .key(innerSetKey)
             .length(16, 1)
             .key(someLabelKey),
         "form 01\nstartUniversalSet 7E03 17 @17\nstartUniversalSet 7E13 16 @34\n"
         "startLabel 7E02 @50\nendLabel 7E02 @50\nendUniversalSet 7E13 @50\n",
         "4C4B0003 incorrect universal set length", "50"},
    };
}

TEST(GenericKLVReader, ReportsBadInputOnceThenEndsTheStreamAndThrows) {
    for (const FailureCase& c : failureCases()) {
        const std::string expected = "startParse\nsetLocator\nstartStream accurate @0\n" +
                                     c.events + "fatal " + c.failure.substr(0, 8) + " @" +
                                     c.position + c.failure.substr(8) +
                                     "\nendStream aborted\nendParse\nthrown " + c.failure + '\n';
        EXPECT_EQ(joined(record(c.bytes, aFile)), expected);
        EXPECT_EQ(joined(record(c.bytes, aPipe)), expected);
        Recording unused; // and without an error handler
        KLVRecorder handler(unused);
        TestStream in(c.bytes.bytes());
        EXPECT_EQ(failureOf([&] { GenericKLVReader(handler).parse(in); }), c.failure);
    }
}

TEST(GenericKLVReader, NoticesASkippedValueThatIsCutShort) {
    constexpr std::uint64_t top = 1ULL << 63;
    const char seek[] = "thrown 4C4A0001 unsuccessful seekg()";
    const char ignore[] = "thrown 4C4A0001 unsuccessful ignore()";
    const std::pair<std::uint64_t, const char*> lengths[] = {
        {3, "thrown 4C4A0001 unsuccessful read()"},
        {1ULL << 62, "thrown 4C4A0001 unsuccessful read()"},
        {top - 26, "thrown 4C4A0001 unsuccessful read()"},
        {top - 25, seek}, // with the 25 bytes in front, one more than a position can be
        {top - 1, seek},
        {top, seek},
        {UINT64_MAX, seek},
    };
    for (const auto& [length, expected] : lengths) {
        SCOPED_TRACE(length);
        const KLVBytes bytes = KLVBytes().key(someItemKey).length(length, 0x88).raw({1, 2});
        EXPECT_EQ(record(bytes, aFile, refused).back(), expected);
        EXPECT_EQ(record(bytes, aPipe, refused).back(), ignore);
        util::vector_istream in(bytes.bytes());
        EXPECT_EQ(record(in, refused).back(), seek);
    }
}

/// A file cut at any byte fails unless it is cut between elements, and shows what is in front.
TEST(GenericKLVReader, SurvivesACutAnywhere) {
    const std::vector<KLVBytes> elements = everyForm();
    const Bytes bytes = together(elements).bytes();
    std::set<std::size_t> ends;
    std::size_t end = 0;
    for (const KLVBytes& element : elements) {
        ends.insert(end += element.size());
    }
    for (const TestStreamOptions& options : {aFile, aPipe}) {
        for (const Configure& configure : {wanted, refused, buffered}) {
            TestStream in(bytes, options);
            const std::vector<std::string> whole = record(in, configure);
            for (std::size_t size = 0; size < bytes.size(); ++size) {
                TestStream cut(
                    Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)),
                    options);
                std::vector<std::string> lines = record(cut, configure);
                const bool complete = ends.count(size) != 0;
                EXPECT_EQ(lines.back().rfind("thrown 4C4A0001 unsuccessful ", 0) == 0, !complete)
                    << size;
                // Behind the events: fatal, endStream, endParse, thrown; or endStream, endParse.
                lines.resize(lines.size() - (complete ? 2 : 4));
                EXPECT_TRUE(std::equal(lines.begin(), lines.end(), whole.begin())) << size;
            }
        }
    }
}

/// A stream may fail at any byte, the first of an element too.
TEST(GenericKLVReader, FailsWhereTheStreamFails) {
    const Bytes bytes = together(everyForm()).bytes();
    for (const bool seekable : {true, false}) {
        for (std::uint64_t at = 0; at <= bytes.size(); ++at) {
            TestStream in(bytes, {seekable, 1, at});
            in.exceptions(seekable ? std::ios_base::badbit : std::ios_base::goodbit);
            EXPECT_EQ(record(in).back(), "thrown 4C4A0001 unsuccessful read()") << at;
        }
    }
}

/// Whatever a handler or an error handler throws from wherever leaves the parse as it is, unless
/// something else is on its way already. The handler has seen the end of the stream.
TEST(GenericKLVReader, PassesOnWhatHandlersThrow) {
    const KLVBytes good =
        together(everyForm()).klv(smpteKey({1, 1, 1, 3, 3, 1, 2, 0x10, 1}), Bytes());
    const KLVBytes bad = KLVBytes(good).key(someItemKey);
    const MXFUID code = klvutil::toUID(klvutil::ErrorCode::InvalidRunIn);
    struct Kind {
        std::function<void()> interfere;
        const char* failure;
        bool isReported;
    };
    const Kind kinds[] = {
        {[] { throw std::runtime_error("refused"); }, "refused", false},
        {[&] { throw klvutil::parse_error(code, "own"); }, "4C4C0002 own", true},
        {[&] { throw klvutil::parse_error(code, "own", true); }, "4C4C0002 own", false},
    };
    for (const bool isBad : {false, true}) {
        const KLVBytes& bytes = isBad ? bad : good;
        const Lines whole = record(bytes);
        const std::size_t count = whole.size() - (isBad ? 1 : 0);
        for (const Kind& kind : kinds) {
            for (std::size_t at = 0; at < count; ++at) {
                SCOPED_TRACE(testing::Message() << kind.failure << " in place of " << whole[at]);
                Recording recording;
                recording.interfere(at, kind.interfere);
                KLVRecorder recorder(recording);
                KeepingErrorHandler errors(recording);
                GenericKLVReader reader(recorder);
                reader.setErrorHandler(&errors);
                TestStream in(bytes.bytes());
                const std::string failure = failureOf([&] { reader.parse(in); });

                const bool inEndParse = at + 1 == count;
                const bool inEndStream = at + 2 == count;
                const bool inFatal = isBad && at + 3 == count;
                EXPECT_EQ(failure, isBad && (inEndParse || inEndStream) ? badRead : kind.failure);
                Lines expected(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(at));
                if (kind.isReported && !inEndParse && !inEndStream && !inFatal) {
                    expected.push_back("fatal");
                }
                if (!inEndParse && !inEndStream) {
                    expected.push_back("endStream aborted");
                }
                if (!inEndParse) {
                    expected.push_back("endParse");
                }
                Lines lines = comparable(recording);
                for (Lines* each : {&lines, &expected}) {
                    for (std::string& line : *each) {
                        line.resize(line.rfind("fatal", 0) == 0 ? 5 : line.size());
                    }
                }
                EXPECT_EQ(lines, expected);
            }
        }
    }
}

TEST(GenericKLVReader, NeedsAHandlerAndAGoodStream) {
    GenericKLVReader reader;
    TestStream in(goodItem().bytes());
    EXPECT_EQ(failureOf([&] { reader.getHandler(); }), "handler is present");
    EXPECT_EQ(failureOf([&] { reader.getErrorHandler(); }), "error handler is present");
    EXPECT_EQ(failureOf([&] { reader.parse(in); }), "handler is present");
    in.setstate(std::ios_base::eofbit);
    EXPECT_EQ(joined(record(in)), "fatal 4C4A0001 input stream is not good()\n"
                                  "thrown 4C4A0001 input stream is not good()\n");
}

TEST(GenericKLVReader, ReadsSetsNestedADepthThatWouldOverflowTheStack) {
    struct DepthHandler : DullKLVHandler {
        std::uint64_t depth = 0, deepest = 0, ended = 0;
        bool startUniversalSet(const KLVKey&, std::uint64_t) override {
            deepest = std::max(deepest, ++depth);
            return true;
        }
        void endUniversalSet(const KLVKey&) override {
            --depth;
            ++ended;
        }
    };
    constexpr std::uint64_t depth = 100000;
    KLVBytes bytes;
    for (std::uint64_t inner = depth; inner-- > 0;) {
        bytes.key(someUniversalSetKey).length(20 * inner);
    }
    for (const TestStreamOptions& options : {aFile, aPipe}) {
        DepthHandler handler;
        TestStream in(bytes.bytes(), options);
        GenericKLVReader(handler).parse(in);
        EXPECT_EQ(handler.deepest, depth);
        EXPECT_EQ(handler.ended, depth);
    }
    DepthHandler handler;
    bytes.raw({6});
    Bytes tooLong = bytes.bytes();
    tooLong[19] = static_cast<std::uint8_t>(tooLong[19] + 1); // the outermost set's length
    TestStream in(tooLong);
    EXPECT_EQ(failureOf([&] { GenericKLVReader(handler).parse(in); }), badRead);
    EXPECT_EQ(handler.ended, depth - 1);
}

} // namespace
