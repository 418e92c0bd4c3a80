#pragma once

#include <vexa/util/Bytes.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

inline namespace vexa_toolkit {

/// Wide strings hold one code point per element (ISO/IEC 10646).
namespace util {

/// The UTF-8 form of a wide string. Nothing if an element is a surrogate or lies beyond U+10FFFF.
std::optional<std::string> utf8FromWide(const std::wstring& text);

/// A wide string out of UTF-16, big-endian. The checks are "correct size of UTF-16 string",
/// "expected UTF-16 character or leading surrogate" and "expected UTF-16 trailing surrogate".
std::wstring wideFromUtf16(const std::uint8_t* bytes, std::size_t size);

/// Appends the UTF-16 form, big-endian. The check is "expected legal UTF-32 code point".
void appendUtf16(Bytes& out, const std::wstring& text);

} // namespace util

} // namespace vexa_toolkit
