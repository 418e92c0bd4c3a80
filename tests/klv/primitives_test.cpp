#include "klv/Fault.h"
#include "klv/KLVKeyMask.h"
#include "klv/batch.h"
#include "klv/berLength.h"
#include "klv/bigEndian.h"
#include "klv/smpte.h"
#include "klv/streams.h"
#include "support/Failures.h"
#include "support/KLVBytes.h"
#include "support/Recorder.h"
#include "support/TestStream.h"
#include "util/vector_istream.h"

#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace {

using Bytes = KLVBytes::Bytes;

TEST(KLVKey, IsComparedWithoutItsVersionAndAnMXFUIDWhole) {
    MXFUID uid;
    KLVKey key;
    for (std::size_t i = 0; i < KLVKey::size; ++i) {
        KLVKey otherKey = key;
        MXFUID otherUID = uid;
        otherKey[i] = otherUID[i] = 0x80;
        EXPECT_EQ(key == otherKey, i == 7) << i;
        EXPECT_EQ(key != otherKey, i != 7) << i;
        EXPECT_FALSE(uid == otherUID) << i;
        EXPECT_TRUE(uid != otherUID) << i;
    }
}

TEST(KLVKey, StreamsAsTextAndLeavesTheStreamAsItWas) {
    std::ostringstream out;
    out << std::showbase << std::oct;
    out.fill('*');
    const std::ios_base::fmtflags flags = out.flags();
    out << KLVKey{{0x06, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1, 2, 1, 1, 2, 4, 0xFF}};
    EXPECT_EQ(out.str(), "06.0E.2B.34.02.05.01.01.0D.01.02.01.01.02.04.FF");
    EXPECT_EQ(out.flags(), flags);
    EXPECT_EQ(out.fill(), '*');
}

TEST(KLVKeyMask, TakesZerosVersionAndWhatLiesBehindTheCountAsWildcards) {
    const KLVKeyMask groups(smpteKey({2}));
    EXPECT_TRUE(groups.matches(smpteKey({2, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15})));
    EXPECT_FALSE(groups.matches(smpteKey({3})));
    EXPECT_FALSE(groups.matches(KLVKey{{7, 0x0E, 0x2B, 0x34, 2}}));

    const KLVKey pattern = smpteKey({2, 5, 1, 9, 8, 1});
    KLVKeyMask mask(pattern, 9);
    EXPECT_TRUE(mask.matches(smpteKey({2, 5, 1, 1, 8, 0xFF})));
    EXPECT_FALSE(mask.matches(smpteKey({2, 5, 1, 1, 7, 1})));
    mask.mask[15] = 0xFF; // requires the zero that stands there
    EXPECT_TRUE(mask.matches(pattern));
    EXPECT_FALSE(mask.matches(smpteKey({2, 5, 1, 1, 8, 1, 0, 0, 0, 0, 0, 1})));
}

TEST(ErrorCode, IsTheFrontOfAFixedUID) {
    const MXFUID uid = klvutil::toUID(klvutil::ErrorCode::InvalidBERLength);
    EXPECT_EQ(uid.bytes,
              (std::array<std::uint8_t, 16>{0x4C, 0x4B, 0x00, 0x02, 0x95, 0xD8, 0x11, 0xE1, 0xBB,
                                            0xB2, 0x10, 0x9A, 0xDD, 0x4A, 0xC6, 0x8C}));
    EXPECT_EQ(klvutil::toErrorCode(uid), klvutil::ErrorCode::InvalidBERLength);
}

struct LengthCase {
    std::uint64_t value;
    int form;
    Bytes bytes; ///< none where it can't be written
    const char* failure = "";
};

const std::uint64_t most = UINT64_MAX;

const std::vector<LengthCase> lengthCases = {
    {0, 0x01, {0x00}},
    {127, 0x01, {0x7F}},
    {128, 0x01, {}, "valid short form length"},
    {0, 0x81, {0x81, 0x00}},
    {127, 0x81, {0x81, 0x7F}},
    {255, 0x81, {0x81, 0xFF}},
    {256, 0x81, {}, "enough subsequent octets"},
    {0x010203, 0x83, {0x83, 0x01, 0x02, 0x03}},
    {0x1000000, 0x83, {}, "enough subsequent octets"},
    {(1ULL << 56) - 1, 0x87, {0x87, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
    {1ULL << 56, 0x87, {}, "enough subsequent octets"},
    {1, 0x88, {0x88, 0, 0, 0, 0, 0, 0, 0, 1}},
    {most, 0x88, {0x88, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
    {0, 0x80, {}, "long form"},
    {0, 0x89, {}, "valid long form"},
    {0, 0xFF, {}, "valid long form"},
    {0, 0x00, {}, "valid current form"},
    {0, 0x02, {}, "valid current form"},
    {0, 0x7F, {}, "valid current form"},
};

TEST(BERLength, IsWrittenInTheFormAskedForAndReadBack) {
    for (const LengthCase& c : lengthCases) {
        SCOPED_TRACE(testing::Message() << c.value << " in form " << c.form);
        std::ostringstream out;
        EXPECT_EQ(failureOf([&] {
                      klvutil::writeBERLength(out, c.value, static_cast<std::uint8_t>(c.form));
                  }),
                  c.failure);
        EXPECT_EQ(out.str(), std::string(c.bytes.begin(), c.bytes.end()));
        if (c.bytes.empty()) {
            continue;
        }
        EXPECT_EQ(klvutil::berLengthSize(static_cast<std::uint8_t>(c.form)), c.bytes.size());
        util::vector_istream in(c.bytes);
        const klvutil::BERLength length = klvutil::readBERLength(in, nullptr);
        EXPECT_EQ(length.value, c.value);
        EXPECT_EQ(length.form, c.form);
        EXPECT_TRUE(in.good());
    }
    std::ostream closed(nullptr);
    EXPECT_EQ(failureOf([&] { klvutil::writeBERLength(closed, 1, 1); }), "successful write()");
    for (const int form : {0x00, 0x02, 0x7F, 0x80}) {
        EXPECT_EQ(failureOf([&] { klvutil::berLengthSize(static_cast<std::uint8_t>(form)); }),
                  "valid BER length form");
    }
}

TEST(BERLength, IsRefusedWhereIndefiniteTooLongOrCut) {
    const std::pair<Bytes, const char*> cases[] = {
        {{0x80, 0, 0}, "4C4B0002 invalid BER long form - 0x80"},
        {{0x89, 0, 0, 0, 0, 0, 0, 0, 0, 0}, "4C4B0002 invalid BER long form - 0x89"},
        {{0xFF}, "4C4B0002 invalid BER long form - 0xFF"},
        {{}, "4C4A0001 unsuccessful read()"},
        {{0x82, 0}, "4C4A0001 unsuccessful read()"},
    };
    for (const auto& [bytes, failure] : cases) {
        TestStream in(bytes);
        KeepingErrorHandler errors;
        EXPECT_EQ(failureOf([&] { klvutil::readBERLength(in, &errors); }), failure);
        EXPECT_EQ(errors.text(), std::string("fatal ") + failure + '\n');
    }
}

TEST(SMPTEKey, IsClassifiedByCategoryAndLowBitsOfTheRegistry) {
    const auto formOf = [](const KLVKey& key) {
        char form = '-';
        const std::string failure =
            failureOf([&] { form = "IULVFWK"[static_cast<int>(klvutil::classify(key))]; });
        const bool refused =
            failure == "4C4B0001 unimplemented SMPTE KLV coding - " + klvutil::describe(key);
        return refused || failure.empty() ? form : '?';
    };
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(formOf(smpteKey({2, i, 0xFF, 0xFF})), "-U-LVF--"[i & 7]) << i;
        EXPECT_EQ(formOf(smpteKey({i, 0xFF})), i == 1   ? 'I'
                                               : i == 3 ? 'W'
                                               : i == 4 ? 'K'
                                                        : '-')
            << i;
    }
}

TEST(SMPTEKey, TellsTheWidthsOfItsItems) {
    const std::map<int, std::string> localSets = {
        // byte 5, length type, tag type
        {0x03, "0 0"}, {0x13, "0 1"}, {0x1B, "0 2"}, {0x23, "1 0"}, {0x33, "1 1"}, {0x3B, "1 2"},
        {0x43, "2 0"}, {0x53, "2 1"}, {0x5B, "2 2"}, {0x63, "3 0"}, {0x73, "3 1"}, {0x7B, "3 2"}};
    const std::map<int, std::string> packs = {{0x04, "0"}, {0x24, "1"}, {0x44, "2"}, {0x64, "3"}};
    const std::map<int, std::string> wrappers = {{1, "1"}, {2, "0"}};
    const auto textOf = [](const std::map<int, std::string>& widths, int byte,
                           const char* refusal) {
        const auto text = widths.find(byte);
        return text != widths.end()
                   ? text->second
                   : refusal + (" - " + klvutil::describe(static_cast<std::uint8_t>(byte)));
    };
    for (int i = 0; i < 256; ++i) {
        std::string localSet, pack, wrapper;
        localSet += failureOf([&] {
            const klvutil::LocalSetWidths widths = klvutil::requireLocalSetWidths(smpteKey({2, i}));
            localSet = std::to_string(widths.lengthType) + ' ' + std::to_string(widths.tagType);
        });
        pack += failureOf([&] {
            pack = std::to_string(klvutil::requireVariableLengthPackWidth(smpteKey({2, i})));
        });
        wrapper += failureOf([&] {
            wrapper = std::to_string(klvutil::isSimpleWrapper(smpteKey({3, i})));
        });
        EXPECT_EQ(localSet, textOf(localSets, i, "4C4B0001 invalid local set type"));
        EXPECT_EQ(pack, textOf(packs, i, "4C4B0001 invalid variable length pack type"));
        EXPECT_EQ(wrapper, textOf(wrappers, i, "4C4B0001 invalid wrapper type"));
    }
    const KLVKey item = smpteKey({1, 0x53});
    EXPECT_EQ(failureOf([&] { klvutil::localSetWidths(item); }), "valid local set key");
    EXPECT_EQ(failureOf([&] { klvutil::variableLengthPackWidth(item); }),
              "valid variable length pack key");
    EXPECT_EQ(failureOf([&] { klvutil::isSimpleWrapper(item); }), "valid wrapper key");
}

TEST(SMPTEKey, HasTypesOfKnownSizeOnly) {
    EXPECT_EQ(klvutil::tagSize(2), 4);
    EXPECT_EQ(klvutil::innerLengthSize(0, 0x85), 6);
    EXPECT_EQ(klvutil::innerLengthSize(3, 0x85), 4);
    EXPECT_EQ(failureOf([] { klvutil::tagSize(3); }), "valid tag type");
    EXPECT_EQ(failureOf([] { klvutil::innerLengthSize(4, 1); }), "valid length type");
    EXPECT_EQ(failureOf([] { klvutil::innerLengthSize(0, 0x80); }), "valid BER length form");
}

TEST(Streams, ReadKeyReportsWhatIsNoSMPTEKeyAndReturnsIt) {
    const Bytes bytes(16, 0xAB);
    KeepingErrorHandler errors;
    util::vector_istream in(bytes);
    EXPECT_EQ(klvutil::readKey(in, &errors)[15], 0xAB);
    EXPECT_EQ(errors.text(), "error 4C4B0001 invalid SMPTE key\n");
    util::vector_istream again(bytes);
    EXPECT_EQ(failureOf([&] { klvutil::readKey(again, nullptr); }), "");
    EXPECT_EQ(failureOf([&] { klvutil::readKey(again, nullptr); }), "4C4A0001 unsuccessful read()");
}

TEST(Streams, IsSeekableAsksTheBufferAndTouchesNothing) {
    struct ThrowingBuffer : std::streambuf {
        pos_type seekoff(off_type, std::ios_base::seekdir, std::ios_base::openmode) override {
            throw std::runtime_error("no");
        }
    } throwing;
    std::istream noBuffer(nullptr);
    std::istream throws(&throwing);
    TestStream pipe(Bytes(4), {false});
    TestStream file(Bytes(4));
    file.ignore(9);
    const std::pair<std::istream*, bool> cases[] = {
        {&noBuffer, false}, {&throws, false}, {&pipe, false}, {&file, true}};
    for (const auto& [stream, seekable] : cases) {
        const std::ios_base::iostate state = stream->rdstate();
        EXPECT_EQ(klvutil::isSeekable(*stream), seekable);
        EXPECT_EQ(stream->rdstate(), state);
    }
    EXPECT_EQ(file.buffer().seeks(), 0);
}

TEST(Streams, ReachTheirEndOnlyWhenTheyAreAskedForMore) {
    for (const std::size_t size : {1U, 65535U, 65536U, 65537U, 200000U}) {
        TestStream in{Bytes(size), {false, 1000}};
        klvutil::ignoreExactly(in, static_cast<std::streamoff>(size));
        EXPECT_EQ(in.rdstate(), std::ios_base::goodbit) << size;
        EXPECT_EQ(klvutil::peekEnd(in), EOF);
        EXPECT_EQ(in.rdstate(), std::ios_base::eofbit) << size;
        TestStream shorter{Bytes(size - 1), {false, 1000}};
        klvutil::ignoreExactly(shorter, static_cast<std::streamoff>(size));
        EXPECT_FALSE(shorter.good()) << size;
    }
    const Bytes bytes{1, 2, 3};
    TestStream in(bytes);
    EXPECT_EQ(klvutil::peekEnd(in), 1);
    EXPECT_FALSE(klvutil::isBeyondEnd(in));
    in.seekg(3);
    EXPECT_EQ(klvutil::peekEnd(in), EOF);
    EXPECT_FALSE(klvutil::isBeyondEnd(in));
    EXPECT_EQ(klvutil::tellSafely(in), std::streampos(-1));
    EXPECT_TRUE(in.fail());
    in.clear(std::ios_base::eofbit);
    klvutil::seekForward(in, 1);
    EXPECT_TRUE(in.good());
    EXPECT_EQ(klvutil::tellSafely(in), std::streampos(4));
    EXPECT_TRUE(klvutil::isBeyondEnd(in));
    EXPECT_EQ(in.tellg(), std::streampos(4));
}

TEST(BigEndian, ReadsWhatItAppendsAndFailsWhereTheValueRunsDry) {
    Bytes bytes;
    klvutil::appendInteger<std::uint8_t>(bytes, 0xF1);
    klvutil::appendInteger<std::uint16_t>(bytes, 0xF2F3);
    klvutil::appendInteger<std::uint32_t>(bytes, 0xF4F5F6F7);
    klvutil::appendInteger<std::uint64_t>(bytes, 0xF8F9FAFBFCFDFEFF);
    klvutil::appendKey(bytes, someItemKey);
    EXPECT_EQ(bytes, KLVBytes().counting(15, 0xF1).key(someItemKey).bytes());
    util::vector_istream in(bytes);
    EXPECT_EQ(klvutil::readInteger<std::uint8_t>(in), 0xF1);
    EXPECT_EQ(klvutil::readInteger<std::uint16_t>(in), 0xF2F3);
    EXPECT_EQ(klvutil::readInteger<std::uint32_t>(in), 0xF4F5F6F7);
    EXPECT_EQ(klvutil::readInteger<std::uint64_t>(in), 0xF8F9FAFBFCFDFEFF);
    EXPECT_EQ(klvutil::decodeKey(in), someItemKey);
    EXPECT_TRUE(in.good());
    EXPECT_EQ(failureOf([&] { klvutil::decodeKey(in); }), "successful read()");
    const Bytes three(3);
    util::vector_istream tooShort(three);
    EXPECT_EQ(failureOf([&] { klvutil::readInteger<std::uint32_t>(tooShort); }),
              "successful get()");
}

TEST(Batch, SkipsWhatElementsHaveTooMuchAndDoesNotTrustItsCount) {
    const auto read = [](const KLVBytes& bytes) {
        std::string elements;
        util::vector_istream in(bytes.bytes());
        const std::string failure = failureOf([&] {
            klvutil::readBatch(in, 2, [&](std::istream& element) {
                elements += std::to_string(klvutil::readInteger<std::uint16_t>(element)) + ' ';
            });
        });
        return elements + failure;
    };
    EXPECT_EQ(read(KLVBytes().number(0, 4).number(2, 4)), "");
    EXPECT_EQ(read(KLVBytes().number(2, 4).number(2, 4).number(7, 2).number(8, 2)), "7 8 ");
    EXPECT_EQ(read(KLVBytes().number(2, 4).number(3, 4).number(7, 2).raw({9}).number(8, 2)),
              "7 8 successful seekg()");
    EXPECT_EQ(read(KLVBytes().number(1, 4).number(1, 4).number(7, 2)), "7 valid external length");
    EXPECT_EQ(read(KLVBytes().number(~0U, 4).number(2, 4).number(7, 2)), "7 successful get()");
    EXPECT_EQ(read(KLVBytes().number(~0U, 4).number(~0U, 4).number(7, 2)), "7 successful seekg()");
    Bytes out;
    klvutil::appendBatch(out, std::vector<std::uint16_t>{7, 8}, 2,
                         klvutil::appendInteger<std::uint16_t>);
    EXPECT_EQ(out, KLVBytes().number(2, 4).number(2, 4).number(7, 2).number(8, 2).bytes());
    EXPECT_EQ(failureOf([&] {
                  klvutil::appendBatch(out, std::vector<std::uint16_t>{7}, 4,
                                       klvutil::appendInteger<std::uint16_t>);
              }),
              "valid entry externalize()");
}

} // namespace
