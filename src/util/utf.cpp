#include "util/utf.h"

#include "util/check.h"

inline namespace vexa_toolkit {

namespace util {
namespace {

static_assert(sizeof(wchar_t) == 4, "a wide string holds code points");

bool isLeadingSurrogate(std::uint32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isTrailingSurrogate(std::uint32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isScalarValue(std::uint32_t codePoint) {
    return codePoint <= 0x10FFFF && !isLeadingSurrogate(codePoint) &&
           !isTrailingSurrogate(codePoint);
}

void appendUnit(Bytes& out, std::uint32_t unit) {
    out.push_back(static_cast<std::uint8_t>(unit >> 8));
    out.push_back(static_cast<std::uint8_t>(unit));
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

std::wstring wideFromUtf16(const std::uint8_t* bytes, std::size_t size) {
    check(size % 2 == 0, "correct size of UTF-16 string");
    const auto unitAt = [&](std::size_t i) { return std::uint32_t{bytes[i]} << 8 | bytes[i + 1]; };
    std::wstring text;
    text.reserve(size / 2);
    for (std::size_t i = 0; i < size; i += 2) {
        std::uint32_t codePoint = unitAt(i);
        check(!isTrailingSurrogate(codePoint), "expected UTF-16 character or leading surrogate");
        if (isLeadingSurrogate(codePoint)) {
            i += 2;
            check(i < size && isTrailingSurrogate(unitAt(i)), "expected UTF-16 trailing surrogate");
            codePoint = 0x10000 + ((codePoint & 0x3FF) << 10 | (unitAt(i) & 0x3FF));
        }
        text.push_back(static_cast<wchar_t>(codePoint));
    }
    return text;
}

void appendUtf16(Bytes& out, const std::wstring& text) {
    out.reserve(out.size() + 2 * text.size());
    for (const wchar_t element : text) {
        const auto codePoint = static_cast<std::uint32_t>(element);
        check(isScalarValue(codePoint), "expected legal UTF-32 code point");
        if (codePoint < 0x10000) {
            appendUnit(out, codePoint);
        } else {
            appendUnit(out, 0xD800 | (codePoint - 0x10000) >> 10);
            appendUnit(out, 0xDC00 | (codePoint & 0x3FF));
        }
    }
}

} // namespace util

} // namespace vexa_toolkit
