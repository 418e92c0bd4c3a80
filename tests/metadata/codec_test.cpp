#include "metadata/codec.h"
#include "support/Failures.h"
#include "support/KLVBytes.h"

#include <gtest/gtest.h>

using metadata::Bytes;
using metadata::decodeValue;
using metadata::encodeValue;

namespace {

template <class T> std::string undecoded(const Bytes& wire) {
    return failureOf([&] { decodeValue<T>(wire); });
}

template <class T> void expectBothWays(const Bytes& wire, const T& value) {
    SCOPED_TRACE(testing::PrintToString(wire));
    EXPECT_TRUE(value == decodeValue<T>(wire));
    EXPECT_EQ(wire, encodeValue(value));
}

/// A byte too many or too few fails, too.
template <class T> void expectFixed(const Bytes& wire, const T& value) {
    expectBothWays(wire, value);
    EXPECT_EQ("valid external length", undecoded<T>(KLVBytes().raw(wire).raw({0}).bytes()));
    EXPECT_EQ("valid external length", undecoded<T>({wire.begin(), wire.end() - 1}));
}

template <class Array> Array counted(int first) {
    Array bytes{};
    for (auto& byte : bytes) {
        byte = static_cast<std::uint8_t>(first++);
    }
    return bytes;
}

} // namespace

TEST(Codec, ReadsAndWritesEachType) {
    const Bytes sixteen = KLVBytes().counting(16, 0xF8).bytes();
    const KLVKey key{counted<std::array<std::uint8_t, 16>>(0xF8)};
    expectFixed<std::uint8_t>({0x80}, 128);
    expectFixed<std::int8_t>({0x80}, -128);
    expectFixed<std::uint16_t>({0xFE, 1}, 0xFE01);
    expectFixed<std::int16_t>({0xFE, 1}, -511);
    expectFixed<std::uint32_t>({0xFE, 1, 2, 3}, 0xFE010203);
    expectFixed<std::int32_t>({0xFF, 0xFF, 0xFF, 0xFE}, -2);
    expectFixed<std::int64_t>({0x80, 0, 0, 0, 0, 0, 0, 1}, INT64_MIN + 1);
    expectFixed<bool>({0}, false);
    expectFixed<bool>({1}, true);
    EXPECT_TRUE(decodeValue<bool>({7}));
    expectFixed(sixteen, MXFUID{key.bytes});
    expectFixed<MXFRational>({0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 3, 0xE9}, {-1, 1001});
    expectFixed<MXFTimestamp>({7, 0xE8, 12, 31, 23, 59, 58, 249}, {2024, 12, 31, 23, 59, 58, 249});
    expectFixed<MXFProductVersion>({0, 1, 0, 2, 0, 3, 0xFF, 4, 0, 5}, {1, 2, 3, 0xFF04, 5});
    RGBALayout layout;
    layout.components[0] = {'R', 10};
    layout.components[7] = {0xD9, 1};
    expectFixed({'R', 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xD9, 1}, layout);
    expectFixed(sixteen, key);
    EXPECT_EQ(key.bytes, decodeValue<KLVKey>(sixteen).bytes); // with byte 7
    const AES3ChannelStatusData status{counted<std::array<std::uint8_t, 24>>(5)};
    expectFixed(KLVBytes().counting(24, 5).bytes(), status);
    expectBothWays<std::string>({'a', 0, 0xFF}, {'a', '\0', '\xFF'});
    expectBothWays<std::string>({}, {});
}

TEST(Codec, ReadsAndWritesUMIDs) {
    for (const std::size_t size : {0, 16, 31, 32, 33, 63, 64, 65}) {
        const Bytes wire = KLVBytes().counting(size, 1).bytes();
        if (size != 32 && size != 64) {
            EXPECT_EQ("valid size", undecoded<UMID>(wire)) << size;
            continue;
        }
        const UMID umid = decodeValue<UMID>(wire);
        EXPECT_EQ(size == 64, umid.extended);
        EXPECT_TRUE(std::equal(wire.begin(), wire.end(), umid.bytes.begin()));
        EXPECT_EQ(wire, encodeValue(umid));
    }
}

TEST(Codec, ReadsAndWritesWideStrings) {
    expectBothWays<std::wstring>({}, L"");
    expectBothWays<std::wstring>({0, 'a', 0, 0, 0xD7, 0xFF, 0xE0, 0, 0xFF, 0xFF},
                                 {L'a', 0, 0xD7FF, 0xE000, 0xFFFF});
    expectBothWays<std::wstring>({0xD8, 0, 0xDC, 0, 0xD8, 1, 0xDC, 2, 0xDB, 0xFF, 0xDF, 0xFF},
                                 {0x10000, 0x10402, 0x10FFFF});
    const std::string lone = "expected UTF-16 trailing surrogate";
    EXPECT_EQ("correct size of UTF-16 string", undecoded<std::wstring>({0, 'a', 0}));
    EXPECT_EQ("expected UTF-16 character or leading surrogate",
              undecoded<std::wstring>({0, 'a', 0xDC, 0}));
    EXPECT_EQ(lone, undecoded<std::wstring>({0xD8, 0, 0, 'a'}));
    EXPECT_EQ(lone, undecoded<std::wstring>({0xD8, 0, 0xDB, 0xFF}));
    EXPECT_EQ(lone, undecoded<std::wstring>({0, 'a', 0xD8, 0}));
    for (const wchar_t illegal : {0xD800, 0xDFFF, 0x110000, -1}) {
        EXPECT_EQ("expected legal UTF-32 code point",
                  failureOf([&] { encodeValue(std::wstring(1, illegal)); }));
    }
}

TEST(Codec, ReadsAndWritesBatches) {
    using Keys = std::vector<KLVKey>;
    using Words = std::vector<std::uint16_t>;
    const auto batch = [](std::uint32_t count, std::uint32_t size, std::size_t bytes) {
        return KLVBytes().number(count, 4).number(size, 4).counting(bytes).bytes();
    };
    expectBothWays<Words>({0, 0, 0, 2, 0, 0, 0, 2, 1, 2, 3, 4}, {0x102, 0x304});
    expectBothWays<std::vector<std::uint8_t>>({0, 0, 0, 1, 0, 0, 0, 1, 9}, {9});
    expectBothWays<std::vector<std::int32_t>>(batch(0, 4, 0), {});
    expectBothWays<std::vector<AES3ChannelStatusData>>(batch(0, 24, 0), {});
    EXPECT_EQ(batch(1, 16, 16), encodeValue(decodeValue<Keys>(batch(1, 16, 16))));
    EXPECT_EQ(2U, decodeValue<std::vector<AES3ChannelStatusData>>(batch(2, 24, 48)).size());
    EXPECT_EQ((Words{0x001, 0x405}), decodeValue<Words>(batch(2, 4, 8))); // larger elements
    EXPECT_EQ(20, decodeValue<Keys>(batch(2, 20, 40))[1][0]);
    EXPECT_TRUE(decodeValue<Words>(batch(0, 0, 0)).empty());
    EXPECT_EQ("valid external length", undecoded<Keys>(batch(2, 12, 24)));
    EXPECT_EQ("valid external length", undecoded<Keys>(batch(2, 0, 32)));
    EXPECT_EQ("valid external length", undecoded<Keys>(batch(1, 16, 17)));
    EXPECT_EQ("valid external length", undecoded<Words>(batch(0, 2, 2)));
    for (const Bytes& cut : {Bytes{}, Bytes(7), batch(2, 16, 31), batch(2, 20, 39),
                             batch(0xFFFFFFFF, 16, 32), batch(1, 0xFFFFFFFF, 16)}) {
        EXPECT_NE("", undecoded<Keys>(cut)) << cut.size();
    }
}
