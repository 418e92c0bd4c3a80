#pragma once

#include "util/check.h"

#include <vexa/klv/KLVKey.h>

#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

namespace klvutil {

/// A key as SMPTE registers write it: `"060E2B34.01010102.07020110.02040000"_key`. Points are
/// passed over; the rest must be 32 upper-case hexadecimal digits.
constexpr KLVKey operator""_key(const char* text, std::size_t size) {
    KLVKey key;
    std::size_t digits = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const char c = text[i];
        if (c == '.') {
            continue;
        }
        const int digit = c >= '0' && c <= '9' ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
        util::check(digit >= 0 && digits < 2 * KLVKey::size, "valid key");
        std::uint8_t& byte = key[digits++ / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | digit);
    }
    util::check(digits == 2 * KLVKey::size, "valid key");
    return key;
}

} // namespace klvutil

} // namespace vexa_toolkit
