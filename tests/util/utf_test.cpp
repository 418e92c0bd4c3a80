#include "util/utf.h"

#include <gtest/gtest.h>

namespace {

TEST(Utf, EncodesAtTheEdgesOfEachLengthAndRefusesWhatIsNoCodePoint) {
    const std::u32string edges = {0x7F,   0x80,   0x7FF,   0x800,   0xD7FF,
                                  0xE000, 0xFFFF, 0x10000, 0x10FFFF};
    EXPECT_EQ(util::utf8FromWide(std::wstring(edges.begin(), edges.end())),
              "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
              "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    for (const std::uint32_t codePoint : {0xD800u, 0xDFFFu, 0x110000u, ~0u}) {
        const std::wstring text(1, static_cast<wchar_t>(codePoint));
        EXPECT_EQ(util::utf8FromWide(text), std::nullopt) << codePoint;
    }
}

} // namespace
