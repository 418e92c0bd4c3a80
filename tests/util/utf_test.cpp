#include "util/utf.h"

#include <gtest/gtest.h>

namespace {

std::optional<std::string> encode(std::uint32_t codePoint) {
    return util::utf8FromWide(std::wstring(1, static_cast<wchar_t>(codePoint)));
}

TEST(Utf, EncodesAtTheEdgesOfEachLength) {
    EXPECT_EQ(util::utf8FromWide(L""), "");
    EXPECT_EQ(encode(0), std::string(1, '\0'));
    EXPECT_EQ(encode(0x7F), "\x7F");
    EXPECT_EQ(encode(0x80), "\xC2\x80");
    EXPECT_EQ(encode(0x7FF), "\xDF\xBF");
    EXPECT_EQ(encode(0x800), "\xE0\xA0\x80");
    EXPECT_EQ(encode(0xD7FF), "\xED\x9F\xBF");
    EXPECT_EQ(encode(0xE000), "\xEE\x80\x80");
    EXPECT_EQ(encode(0xFFFF), "\xEF\xBF\xBF");
    EXPECT_EQ(encode(0x10000), "\xF0\x90\x80\x80");
    EXPECT_EQ(encode(0x10FFFF), "\xF4\x8F\xBF\xBF");
    EXPECT_EQ(util::utf8FromWide(L"a\u00E9z"), "a\xC3\xA9z");
}

TEST(Utf, RefusesWhatIsNoCodePoint) {
    for (const std::uint32_t codePoint : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, ~0u}) {
        EXPECT_EQ(encode(codePoint), std::nullopt) << codePoint;
    }
}

} // namespace
