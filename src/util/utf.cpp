#include "util/utf.h"

#include <cstdint>

namespace util {
namespace {

bool isScalarValue(std::uint32_t codePoint) {
    return codePoint <= 0x10FFFF && (codePoint < 0xD800 || codePoint > 0xDFFF);
}

void appendUtf8(std::string& text, std::uint32_t codePoint) {
    const auto append = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto appendTail = [&](int shift) { append(0x80 | ((codePoint >> shift) & 0x3F)); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0 | (codePoint >> 6));
        appendTail(0);
    } else if (codePoint < 0x10000) {
        append(0xE0 | (codePoint >> 12));
        appendTail(6);
        appendTail(0);
    } else {
        append(0xF0 | (codePoint >> 18));
        appendTail(12);
        appendTail(6);
        appendTail(0);
    }
}

} // namespace

std::optional<std::string> utf8FromWide(const std::wstring& text) {
    std::string result;
    result.reserve(text.size());
    for (const wchar_t element : text) {
        const auto codePoint = static_cast<std::uint32_t>(element);
        if (!isScalarValue(codePoint)) {
            return std::nullopt;
        }
        appendUtf8(result, codePoint);
    }
    return result;
}

} // namespace util
