#include "klv/Fault.h"
#include "klv/KLVKeyMask.h"
#include "klv/batch.h"
#include "klv/berLength.h"
#include "klv/bigEndian.h"
#include "klv/smpte.h"
#include "klv/streams.h"
#include "support/Testing.h"
#include "util/vector_istream.h"

namespace {

TEST(KLVKey, IsComparedWithoutItsVersionAndAnMXFUIDWhole) {
    for (std::size_t i = 0; i < KLVKey::size; ++i) {
        KLVKey key;
        MXFUID uid;
        key[i] = uid[i] = 0x80;
        EXPECT_EQ(key == KLVKey(), i == 7) << i;
        EXPECT_EQ(key != KLVKey(), i != 7) << i;
        EXPECT_TRUE(uid != MXFUID() && !(uid == MXFUID())) << i;
    }
}

TEST(KLVKeyMask, TakesZerosVersionAndWhatLiesBehindTheCountAsWildcards) {
    KLVKeyMask mask(smpteKey({2, 0, 1, 9, 8, 1}), 9);
    EXPECT_TRUE(mask.matches(smpteKey({2, 5, 1, 1, 8, 0xFF})));
    EXPECT_FALSE(mask.matches(smpteKey({2, 5, 1, 1, 7, 1})));
    mask.mask[15] = 0xFF; // requires the zero that stands there
    EXPECT_FALSE(mask.matches(smpteKey({2, 5, 1, 1, 8, 1, 0, 0, 0, 0, 0, 1})));
}

TEST(Fault, HasACodeInFrontOfAFixedUIDAndDescribesKeys) {
    EXPECT_EQ(klvutil::toUID(klvutil::ErrorCode::InvalidBERLength).bytes,
              (std::array<std::uint8_t, 16>{0x4C, 0x4B, 0x00, 0x02, 0x95, 0xD8, 0x11, 0xE1, 0xBB,
                                            0xB2, 0x10, 0x9A, 0xDD, 0x4A, 0xC6, 0x8C}));
    std::ostringstream out;
    out << std::oct << smpteKey({2, 5, 0xAF}) << ' ' << 8;
    EXPECT_EQ(out.str(), "06.0E.2B.34.02.05.AF.00.00.00.00.00.00.00.00.00 10");
}

/// Reports in a line each, as a caller would print them.
struct ReportLines : ReportHandler {
    std::string text;

    void report(klvutil::Severity severity, const MXFUID& code, const std::string& what,
                std::streamoff position) override {
        text += klvutil::severityName(severity) + ' ' + klvutil::codeName(code) + ' ' +
                std::to_string(position) + ' ' + what + '\n';
    }
};

TEST(ReportHandler, NamesWhatIsReportedAndTheParseThatIsReading) {
    struct Place : Locator {
        explicit Place(std::streamoff offset) : position(offset) {}
        const std::streampos& getPosition() const override { return position; }
        std::streampos position;
    };
    const Place outer(7), inner(9);
    const MXFUID code = klvutil::toUID(klvutil::ErrorCode::InvalidPartitionPack);
    MXFUID similar = code;
    ++similar[15];
    ReportLines lines;
    lines.fatalError(klvutil::toUID(klvutil::ErrorCode{}), "a");
    lines.setLocator(&outer);
    lines.startParse();
    lines.warning(code, "b");
    lines.setLocator(&inner);
    lines.startParse();
    lines.error(similar, "c");
    lines.endParse();
    lines.error(code, "d");
    lines.endParse();
    lines.error(code, "e");
    EXPECT_EQ(lines.text, "fatal error  -1 a\nwarning InvalidPartitionPack 7 b\nerror  9 c\n"
                          "error InvalidPartitionPack 7 d\nerror InvalidPartitionPack -1 e\n");
}

TEST(Check, TellsWhereItStands) {
    try {
        klvutil::berLengthSize(klvutil::noBERForm);
        ADD_FAILURE();
    } catch (const util::assertion_failure& failure) {
        EXPECT_STREQ(failure.file(), "src/klv/berLength.cpp");
        EXPECT_GT(failure.line(), 0);
        EXPECT_STREQ(failure.what(), "assertion failure: valid BER length form");
    }
}

TEST(BERLength, IsWrittenInTheFormAskedForAndReadBack) {
    const char few[] = "enough subsequent octets";
    const struct {
        std::uint64_t value;
        std::uint8_t form;
        Bytes bytes; ///< none where it can't be written
        const char* failure = "";
    } cases[] = {
        {0, 0x01, {0x00}},
        {127, 0x01, {0x7F}},
        {128, 0x01, {}, "valid short form length"},
        {255, 0x81, {0x81, 0xFF}},
        {256, 0x81, {}, few},
        {0x010203, 0x83, {0x83, 0x01, 0x02, 0x03}},
        {1ULL << 56, 0x87, {}, few},
        {UINT64_MAX, 0x88, {0x88, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
        {0, 0x80, {}, "long form"},
        {0, 0x89, {}, "valid long form"},
        {0, 0x00, {}, "valid current form"},
        {0, 0x7F, {}, "valid current form"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.value << " in form " << int{c.form});
        std::ostringstream out;
        EXPECT_EQ(failureOf([&] { klvutil::writeBERLength(out, c.value, c.form); }), c.failure);
        EXPECT_EQ(out.str(), std::string(c.bytes.begin(), c.bytes.end()));
        if (!c.bytes.empty()) {
            EXPECT_EQ(klvutil::berLengthSize(c.form), c.bytes.size());
            util::vector_istream in(c.bytes);
            const klvutil::BERLength length = klvutil::readBERLength(in, nullptr);
            EXPECT_EQ(length.value, c.value);
            EXPECT_EQ(length.form, c.form);
        }
    }
}

TEST(SMPTEKey, IsClassifiedAndTellsTheWidthsOfItsItems) {
    const std::map<int, std::string> widths = {
        // local sets: octets of a tag and of a length, 6 where that is BER in form 85
        {0x03, "1 6"},
        {0x13, "2 6"},
        {0x1B, "4 6"},
        {0x23, "1 1"},
        {0x33, "2 1"},
        {0x3B, "4 1"},
        {0x43, "1 2"},
        {0x53, "2 2"},
        {0x5B, "4 2"},
        {0x63, "1 4"},
        {0x73, "2 4"},
        {0x7B, "4 4"},
        // variable length packs
        {0x04, "6"},
        {0x24, "1"},
        {0x44, "2"},
        {0x64, "4"}};
    const auto codingOf = [](const KLVKey& key) {
        char coding = '-';
        failureOf([&] { coding = "IULVFWK"[static_cast<int>(klvutil::classify(key))]; });
        return coding;
    };
    for (int i = 0; i < 256; ++i) {
        const KLVKey key = smpteKey({2, i, 0xFF, 0xFF});
        EXPECT_EQ(codingOf(key), "-U-LVF--"[i & 7]) << i;
        EXPECT_EQ(codingOf(smpteKey({i, 5})), i < 5 ? "-IFWK"[i] : '-') << i;
        std::string text;
        if (const auto local = klvutil::localSetWidths(key)) {
            text = std::to_string(klvutil::tagSize(local->tagType)) + ' ' +
                   std::to_string(klvutil::innerLengthSize(local->lengthType, 0x85));
        } else if (const auto pack = klvutil::variableLengthPackWidth(key)) {
            text = std::to_string(klvutil::innerLengthSize(*pack, 0x85));
        }
        EXPECT_EQ(text, widths.count(i) != 0 ? widths.at(i) : "") << i;
    }
}

TEST(Streams, ReportAKeyThatIsNoneAndReturnIt) {
    const Bytes bytes(16, 0xAB);
    KeepingErrorHandler errors;
    util::vector_istream in(bytes);
    EXPECT_EQ(klvutil::readKey(in, &errors)[15], 0xAB);
    EXPECT_EQ(errors.text(), "error 4C4B0001 invalid SMPTE key\n");
}

TEST(Streams, ThatEndEarlySayThatTheyEnded) {
    std::uint8_t bytes[4];
    for (const bool asNumber : {false, true}) {
        TestStream in(Bytes(3));
        EXPECT_EQ(failureOf([&] {
                      asNumber ? void(klvutil::readNumber(in, 4, nullptr))
                               : klvutil::checkedRead(in, bytes, 4, nullptr);
                  }),
                  "4C4A0001 unsuccessful read()");
        EXPECT_EQ(in.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
    }
}

TEST(Streams, AreAskedWhetherTheySeekWithoutAChange) {
    struct ThrowingBuffer : std::streambuf {
        pos_type seekoff(off_type, std::ios_base::seekdir, std::ios_base::openmode) override {
            throw std::runtime_error("no");
        }
    } throwing;
    std::istream throws(&throwing), noBuffer(nullptr);
    EXPECT_FALSE(klvutil::isSeekable(noBuffer));
    EXPECT_FALSE(klvutil::isSeekable(throws));
    EXPECT_TRUE(throws.good());
    TestStream atEnd(Bytes(4));
    atEnd.ignore(9);
    EXPECT_TRUE(klvutil::isSeekable(atEnd));
    EXPECT_TRUE(atEnd.eof());
}

TEST(Streams, ReachTheirEndOnlyWhenTheyAreAskedForMore) {
    for (const std::size_t size : {1U, 65536U, 65537U}) {
        TestStream in{Bytes(size), {false, 1000}};
        klvutil::ignoreExactly(in, static_cast<std::streamoff>(size));
        EXPECT_TRUE(in.good());
        klvutil::peekEnd(in);
        EXPECT_EQ(in.rdstate(), std::ios_base::eofbit);
    }
    TestStream in(Bytes(3));
    klvutil::seekForward(in, 3);
    for (const bool atEnd : {true, false}) {
        klvutil::peekEnd(in);
        EXPECT_EQ(klvutil::endsBehindAByte(in), atEnd);
        EXPECT_EQ(in.rdstate(), std::ios_base::eofbit);
        klvutil::seekForward(in, 1);
    }
}

TEST(Batch, SkipsWhatElementsHaveTooMuchAndDoesNotTrustItsCount) {
    const auto read = [](const KLVBytes& bytes) {
        util::byte_reader in(bytes.bytes());
        std::vector<std::uint16_t> elements;
        const std::string failure = failureOf(
            [&] { klvutil::readBatch(in, 2, elements, klvutil::readInteger<std::uint16_t>); });
        std::string text;
        for (const std::uint16_t element : elements) {
            text += std::to_string(element) + ' ';
        }
        return text + failure;
    };
    const KLVBytes batch{0, 0, 0, 2, 0, 0, 0, 2, 0xF1, 7, 0, 8};
    EXPECT_EQ(read(batch), "61703 8 ");
    EXPECT_EQ(read(KLVBytes{0, 0, 0, 2, 0, 0, 0, 3, 0, 7, 9, 0, 8}), "7 8 successful seekg()");
    EXPECT_EQ(read(KLVBytes{0, 0, 0, 1, 0, 0, 0, 1, 0, 7}), "valid external length");
    EXPECT_EQ(read(KLVBytes{255, 255, 255, 255, 0, 0, 0, 2, 0, 7, 1}), "7 successful get()");
    Bytes out;
    const auto append = klvutil::appendInteger<std::uint16_t>;
    klvutil::appendBatch(out, std::vector<std::uint16_t>{0xF107, 8}, 2, append);
    EXPECT_EQ(out, batch.bytes());
    EXPECT_EQ(
        failureOf([&] { klvutil::appendBatch(out, std::vector<std::uint16_t>{7}, 4, append); }),
        "valid entry externalize()");
}

} // namespace
