#include "metadata/model/codec.h"
#include "support/Testing.h"

namespace {

template <class T> std::string undecoded(const Bytes& wire) {
    return failureOf([&] { metadata::decodeValue<T>(wire); });
}

template <class T> void expectBothWays(const Bytes& wire, const T& value) {
    EXPECT_TRUE(value == metadata::decodeValue<T>(wire)) << testing::PrintToString(wire);
    EXPECT_EQ(wire, metadata::encodeValue(value));
}

/// A byte too many or too few fails, too.
template <class T> void expectFixed(const Bytes& wire, const T& value) {
    expectBothWays(wire, value);
    EXPECT_EQ("valid external length", undecoded<T>(KLVBytes().raw(wire).raw({0}).bytes()));
    EXPECT_EQ("valid external length", undecoded<T>({wire.begin(), wire.end() - 1}));
}

constexpr bool areEqual(const MXFRational& a, const MXFRational& b) {
    return a == b && b == a;
}
static_assert(areEqual({50, 2}, {25, 1}) && areEqual({-1, 2}, {1, -2}) &&
              areEqual({0, 5}, {0, -1}));
static_assert(areEqual({INT32_MIN, INT32_MIN}, {1, 1}) && areEqual({1, 0}, {0, 0}));
static_assert(!areEqual({0, 0}, {0, 1}) && !areEqual({1, 0}, {1, 1}) && !areEqual({2, 1}, {-2, 1}));

} // namespace

TEST(Codec, ReadsAndWritesEachType) {
    const Bytes label = {0xF8, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    const KLVKey key{{0xF8, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}};
    expectFixed<std::uint8_t>({0x80}, 128);
    expectFixed<std::int8_t>({0x80}, -128);
    expectFixed<std::int16_t>({0xFE, 1}, -511);
    expectFixed<std::uint32_t>({0xFE, 1, 2, 3}, 0xFE010203);
    expectFixed<std::int64_t>({0x80, 0, 0, 0, 0, 0, 0, 1}, INT64_MIN + 1);
    expectFixed<bool>({0}, false);
    expectFixed<bool>({1}, true);
    EXPECT_EQ("", undecoded<bool>({7}));
    EXPECT_TRUE(metadata::decodeValue<bool>({7}));
    expectFixed(label, MXFUID{key.bytes});
    expectFixed(label, key);
    EXPECT_EQ(key.bytes, metadata::decodeValue<KLVKey>(label).bytes); // with byte 7
    expectFixed<MXFRational>({0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 3, 0xE9}, {-1, 1001});
    expectFixed<MXFTimestamp>({7, 0xE8, 12, 31, 23, 59, 58, 249}, {2024, 12, 31, 23, 59, 58, 249});
    expectFixed<MXFProductVersion>({0, 1, 0, 2, 0, 3, 0xFF, 4, 0, 5}, {1, 2, 3, 0xFF04, 5});
    const RGBALayout layout{{{{'R', 10}, {'G', 9}, {}, {}, {}, {}, {}, {0xD9, 1}}}};
    expectFixed({'R', 10, 'G', 9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xD9, 1}, layout);
    expectBothWays<std::string>({'a', 0, 0xFF}, {'a', '\0', '\xFF'});
    for (const std::size_t size : {0U, 31U, 32U, 33U, 63U, 64U, 65U}) {
        const Bytes wire = KLVBytes().counting(size, 1).bytes();
        UMID umid;
        std::copy_n(wire.begin(), std::min<std::size_t>(size, 64), umid.bytes.begin());
        umid.extended = size == 64;
        EXPECT_EQ(size == 32 || size == 64 ? "" : "valid size", undecoded<UMID>(wire));
        if (size == 32 || size == 64) {
            expectBothWays(wire, umid);
        }
    }
}

TEST(Codec, ReadsAndWritesWideStrings) {
    expectBothWays<std::wstring>({}, {});
    expectBothWays<std::wstring>(
        {0, 0, 0xD7, 0xFF, 0xE0, 0, 0xFF, 0xFF, 0xD8, 0, 0xDC, 0, 0xDB, 0xFF, 0xDF, 0xFF},
        {0, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF});
    EXPECT_EQ("correct size of UTF-16 string", undecoded<std::wstring>({0, 'a', 0}));
    EXPECT_EQ("expected UTF-16 character or leading surrogate",
              undecoded<std::wstring>({0, 'a', 0xDC, 0}));
    for (const Bytes& lone : {Bytes{0xD8, 0, 0, 'a'}, {0xD8, 0, 0xDB, 0xFF}, {0, 'a', 0xD8, 0}}) {
        EXPECT_EQ("expected UTF-16 trailing surrogate", undecoded<std::wstring>(lone));
    }
    for (const wchar_t illegal : {0xD800, 0xDFFF, 0x110000, -1}) {
        EXPECT_EQ("expected legal UTF-32 code point",
                  failureOf([&] { metadata::encodeValue(std::wstring(1, illegal)); }));
    }
}

/// The longer of two labels that begin alike.
TEST(LabelName, IsThatOfTheNarrowestFamily) {
    const auto coding = [](int line, int kind) {
        return metadata::labelName(smpteKey({4, 1, 1, 9, 4, 1, 2, 2, 1, line, kind, 1}));
    };
    EXPECT_EQ(coding(2, 1), "D-10 coding");
    EXPECT_EQ(coding(2, 3), "MPEG-2 422P@ML coding");
    EXPECT_EQ(coding(3, 1), "MPEG-2 MP@HL coding");
    EXPECT_EQ(coding(9, 1), "");
    EXPECT_EQ(metadata::labelName(smpteKey({1, 1, 1, 9, 4, 1, 2, 2, 1, 2, 1, 1})), "");
}

TEST(Codec, ReadsAndWritesBatches) {
    using Keys = std::vector<KLVKey>;
    expectBothWays<std::vector<std::int16_t>>({0, 0, 0, 2, 0, 0, 0, 2, 1, 2, 0xFF, 4}, {258, -252});
    expectBothWays<std::vector<AES3ChannelStatusData>>(batch(0, 24, 0), {});
    EXPECT_EQ(2U,
              metadata::decodeValue<std::vector<AES3ChannelStatusData>>(batch(2, 24, 48)).size());
    EXPECT_EQ(20, metadata::decodeValue<Keys>(batch(2, 20, 40))[1][0]);
    EXPECT_EQ("", undecoded<Keys>(batch(0, 0, 0)));
    for (const Bytes& wrong :
         {batch(2, 12, 24), batch(2, 0, 32), batch(1, 16, 17), batch(0, 2, 2)}) {
        EXPECT_EQ("valid external length", undecoded<Keys>(wrong));
    }
    for (const Bytes& cut : {Bytes(7), batch(2, 16, 31), batch(2, 20, 39), batch(1, ~0U, 16)}) {
        EXPECT_NE("", undecoded<Keys>(cut)) << cut.size();
    }
}
