#pragma once

#include <vexa/klv/KLVKey.h>

#include <array>
#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

/// A pattern for keys. Its zero bytes and byte 7 match anything; a mask byte can be set by hand
/// afterwards, to require a zero byte or to free another.
struct KLVKeyMask {
    std::array<std::uint8_t, KLVKey::size> value{};
    std::array<std::uint8_t, KLVKey::size> mask{};

    /// Positions at and beyond `count` match anything.
    constexpr explicit KLVKeyMask(const KLVKey& pattern, std::size_t count = KLVKey::size) {
        for (std::size_t i = 0; i < count && i < KLVKey::size; ++i) {
            value[i] = pattern[i];
            mask[i] = i == KLVKey::versionByte || pattern[i] == 0 ? 0x00 : 0xFF;
        }
    }

    constexpr bool matches(const KLVKey& key) const {
        for (std::size_t i = 0; i < KLVKey::size; ++i) {
            if (((value[i] ^ key[i]) & mask[i]) != 0) {
                return false;
            }
        }
        return true;
    }
};

} // namespace vexa_toolkit
