#pragma once

#include <cstdint>
#include <string>

namespace util {

/// Two upper-case hexadecimal digits.
inline std::string hexByte(std::uint8_t byte) {
    constexpr char digits[] = "0123456789ABCDEF";
    return {digits[byte >> 4], digits[byte & 0x0F]};
}

} // namespace util
