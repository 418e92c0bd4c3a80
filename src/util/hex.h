#pragma once

#include <cstdint>
#include <string>

inline namespace vexa_toolkit {

namespace util {

/// Two upper-case hexadecimal digits.
inline std::string hexByte(std::uint8_t byte) {
    constexpr char digits[] = "0123456789ABCDEF";
    return {digits[byte >> 4], digits[byte & 0x0F]};
}

/// Upper-case hexadecimal digits, as many as it takes.
inline std::string hexNumber(std::uint64_t number) {
    std::string text;
    for (; number > 0xFF; number >>= 8) {
        text.insert(0, hexByte(static_cast<std::uint8_t>(number)));
    }
    text.insert(0, hexByte(static_cast<std::uint8_t>(number)));
    return text[0] == '0' && text.size() > 1 ? text.substr(1) : text;
}

} // namespace util

} // namespace vexa_toolkit
