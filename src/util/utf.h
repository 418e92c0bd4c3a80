#pragma once

#include <optional>
#include <string>

namespace util {

/// The UTF-8 form of a wide string that holds one code point per element. Nothing if an element is
/// a surrogate or lies beyond U+10FFFF (ISO/IEC 10646).
std::optional<std::string> utf8FromWide(const std::wstring& text);

} // namespace util
