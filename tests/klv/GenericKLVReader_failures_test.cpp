#include "klv/RecordedParse.h"
#include "support/Testing.h"
#include "util/vector_istream.h"

namespace {

const std::string badRead = "4C4A0001 unsuccessful read()";

KLVBytes element(const KLVKey& key, std::uint64_t length, int form, const KLVBytes& value) {
    return KLVBytes().key(key).length(length, form).raw(value);
}

TEST(GenericKLVReader, ReportsBadInputOnceThenEndsTheStreamAndThrows) {
    const KLVBytes label = KLVBytes().key(someLabelKey);
    const struct {
        KLVBytes bytes;
        std::string events; ///< behind startStream
        int position;
        std::string failure;
    } cases[] = {
        {{}, "", 0, badRead},
        {element(someItemKey, 5, 1, KLVBytes{1, 2, 3, 4}),
         "form 01\nstartIndividualItem 7E01 5 @17\n", 17, badRead},
        {element(someItemKey, 1ULL << 63, 0x88, KLVBytes{1}),
         "form 88\nstartIndividualItem 7E01 9223372036854775808 @25\n", 25, badRead},
        {KLVBytes().key(someItemKey).raw({0x80}), "", 0, "4C4B0002 invalid BER long form - 0x80"},
        {KLVBytes().key(someItemKey).raw({0x89}), "", 0, "4C4B0002 invalid BER long form - 0x89"},
        {KLVBytes().klv(someItemKey, KLVBytes{1}, 1).raw(Bytes(20)),
         "form 01\nstartIndividualItem 7E01 1 @17\nvalue 1 01 @18\nendIndividualItem 7E01 @18\n",
         18, "4C4B0001 invalid SMPTE key - 00.00.00.00.00.00.00.00.00.00.00.00.00.00.00.00"},
        {KLVBytes().key(smpteKey({2, 2})), "", 0,
         "4C4B0001 unimplemented SMPTE KLV coding - "
         "06.0E.2B.34.02.02.00.00.00.00.00.00.00.00.00.00"},
        {KLVBytes().key(smpteKey({2, 0x0B})), "", 0, "4C4B0001 invalid local set type - 0x0B"},
        {KLVBytes().key(smpteKey({2, 0x0C})), "", 0,
         "4C4B0001 invalid variable length pack type - 0x0C"},
        {KLVBytes().key(smpteKey({3, 3})), "", 0, "4C4B0001 invalid wrapper type - 0x03"},
        {element(someLocalSetKey, 4, 1, KLVBytes{0, 1, 0, 1, 7}),
         "form 01\nstartLocalSet 7E04 4 tag 1 length 2 @17\nstartLocalItem 0001 1 @21\n"
         "value 1 07 @22\nendLocalItem 0001 @22\n",
         22, "4C4B0003 incorrect local set length"},
        {element(someVariablePackKey, 2, 1, KLVBytes{2, 8, 9}),
         "form 01\nstartVariableLengthPack 7E05 2 length 0 @17\nstartVariableLengthItem 2 @18\n"
         "value 2 08 09 @20\nendVariableLengthItem @20\n",
         20, "4C4B0003 incorrect variable length pack length"},
        // A set that is right in itself overruns the one around it.
        {element(someUniversalSetKey, 32, 1, element(innerSetKey, 16, 1, label)),
         "form 01\nstartUniversalSet 7E03 32 @17\nstartUniversalSet 7E13 16 @34\n"
         "startLabel 7E02 @50\nendLabel 7E02 @50\nendUniversalSet 7E13 @50\n",
         50, "4C4B0003 incorrect universal set length"},
    };
    for (const auto& c : cases) {
        const std::string expected = "startParse\nsetLocator\nstartStream accurate @0\n" +
                                     c.events + "fatal " + c.failure.substr(0, 8) + " @" +
                                     std::to_string(c.position) + c.failure.substr(8) +
                                     "\nendStream aborted\nendParse\nthrown " + c.failure + '\n';
        EXPECT_EQ(joined(record(c.bytes.bytes(), aFile)), expected);
        EXPECT_EQ(joined(record(c.bytes.bytes(), aPipe)), expected);
        DullKLVHandler handler; // and without an error handler
        TestStream in(c.bytes.bytes(), aPipe);
        EXPECT_NE(failureOf([&] { GenericKLVReader(handler).parse(in); }), "");
    }
}

TEST(GenericKLVReader, NoticesASkippedValueThatIsCutShort) {
    constexpr std::uint64_t top = 1ULL << 63;
    const std::string seek = "thrown 4C4A0001 unsuccessful seekg()";
    const std::pair<std::uint64_t, std::string> lengths[] = {
        {3, "thrown " + badRead},
        {top - 26, "thrown " + badRead},
        {top - 25, seek}, // with the 25 bytes in front, one more than a position can be
        {top, seek},
        {UINT64_MAX, seek},
    };
    for (const auto& [length, expected] : lengths) {
        SCOPED_TRACE(length);
        const Bytes bytes = element(someItemKey, length, 0x88, KLVBytes{1, 2}).bytes();
        EXPECT_EQ(record(bytes, aFile, refused).back(), expected);
        EXPECT_EQ(record(bytes, aPipe, refused).back(), "thrown 4C4A0001 unsuccessful ignore()");
        util::vector_istream in(bytes);
        EXPECT_EQ(record(in, refused).back(), seek);
    }
}

/// The end is known by the byte before it, whatever the stream says of its size, and only where the
/// last value was skipped.
TEST(GenericKLVReader, BelievesNoStreamThatSaysItIsShorterThanItIs) {
    const Bytes bytes = KLVBytes().raw(everyForm()).fill(3).bytes();
    const Bytes cut(bytes.begin(), bytes.end() - 1);
    TestStreamOptions relative, sizeless;
    relative.relativeSeeksOnly = true;
    sizeless.claimedSize = 0;
    for (const TestStreamOptions& options : {relative, sizeless}) {
        EXPECT_EQ(record(bytes, options).back(), "endParse");
        EXPECT_EQ(record(bytes, options, refused).back(), "endParse");
        EXPECT_EQ(record(cut, options, refused).back(), "thrown " + badRead);
    }
}

/// A stream may fail at any byte, the first of an element too.
TEST(GenericKLVReader, FailsWhereTheStreamFails) {
    for (const bool seekable : {true, false}) {
        for (std::uint64_t at = 0; at <= everyForm().size(); ++at) {
            TestStream in(everyForm(), {seekable, 1, at});
            in.exceptions(seekable ? std::ios_base::badbit : std::ios_base::goodbit);
            EXPECT_EQ(record(in).back(), "thrown " + badRead) << at;
        }
    }
}

/// Whatever a handler or an error handler throws from wherever leaves the parse as it is, unless
/// something else is on its way already. The handler has seen the end of the stream.
TEST(GenericKLVReader, PassesOnWhatHandlersThrow) {
    const KLVBytes good = KLVBytes().raw(everyForm()).fill(0);
    const MXFUID code = klvutil::toUID(klvutil::ErrorCode::InvalidRunIn);
    const KeepingErrorHandler ofAnotherReader;
    const ErrorHandler* ofThisReader = nullptr;
    const struct {
        std::function<void()> interfere;
        std::string failure;
        bool isReported;
    } kinds[] = {
        {[] { throw std::runtime_error("refused"); }, "refused", false},
        {[&] { throw klvutil::parse_error(code, "own"); }, "4C4C0002 own", true},
        {[&] { throw klvutil::parse_error(code, "own", &ofAnotherReader); }, "4C4C0002 own", true},
        {[&] { throw klvutil::parse_error(code, "own", ofThisReader); }, "4C4C0002 own", false},
    };
    for (const bool isBad : {false, true}) {
        const Bytes bytes = (isBad ? KLVBytes(good).key(someItemKey) : good).bytes();
        const Lines whole = record(bytes);
        const std::size_t endParse = whole.size() - (isBad ? 2 : 1), endStream = endParse - 1;
        for (const auto& kind : kinds) {
            for (std::size_t at = 0; at <= endParse; ++at) {
                SCOPED_TRACE(testing::Message() << kind.failure << " in place of " << whole[at]);
                Recording recording;
                recording.interfere(at, kind.interfere);
                KLVRecorder recorder(recording);
                KeepingErrorHandler errors(recording);
                ofThisReader = &errors;
                GenericKLVReader reader(recorder);
                reader.setErrorHandler(&errors);
                TestStream in(bytes);
                std::string seen;
                EXPECT_EQ(failureOf([&] { reader.parse(in); }),
                          isBad && at >= endStream ? badRead : kind.failure);
                const bool isTold = kind.isReported && !(isBad && at == endStream - 1);
                std::string behind = at < endStream && isTold ? "fatal\n" : "";
                behind += at < endStream ? "endStream aborted\n" : "";
                behind += at < endParse ? "endParse\n" : "";
                for (std::size_t i = at; i < recording.lines().size(); ++i) {
                    const std::string& line = recording.lines()[i];
                    seen += line.substr(0, line.find_first_of("4@") - 1) + '\n'; // code, position
                }
                EXPECT_EQ(seen, behind);
            }
        }
    }
}

TEST(GenericKLVReader, NeedsAHandlerAndAGoodStream) {
    GenericKLVReader reader;
    TestStream in(everyForm());
    EXPECT_EQ(failureOf([&] { reader.getErrorHandler(); }), "error handler is present");
    EXPECT_EQ(failureOf([&] { reader.parse(in); }), "handler is present");
    in.setstate(std::ios_base::eofbit);
    EXPECT_EQ(joined(record(in)), "fatal 4C4A0001 input stream is not good()\n"
                                  "thrown 4C4A0001 input stream is not good()\n");
}

TEST(GenericKLVReader, ReadsSetsNestedADepthThatWouldOverflowTheStack) {
    struct DepthHandler : DullKLVHandler {
        int started = 0, ended = 0;
        bool startUniversalSet(const KLVKey&, std::uint64_t) override { return ++started, true; }
        void endUniversalSet(const KLVKey&) override { ++ended; }
    };
    constexpr int depth = 100000;
    KLVBytes sets;
    for (int inner = depth; inner-- > 0;) {
        sets.key(someUniversalSetKey).length(static_cast<std::uint64_t>(20 * inner));
    }
    Bytes tooLong = sets.bytes();
    ++tooLong[19]; // the outermost set's length
    for (const bool isGood : {true, false}) {
        for (const TestStreamOptions& options : {aFile, aPipe}) {
            DepthHandler handler;
            TestStream in(isGood ? sets.bytes() : tooLong, options);
            EXPECT_EQ(failureOf([&] { GenericKLVReader(handler).parse(in); }),
                      isGood ? "" : badRead);
            EXPECT_EQ(handler.started, depth);
            EXPECT_EQ(handler.ended, isGood ? depth : depth - 1);
        }
    }
}

} // namespace
