#pragma once

#include <vexa/vexa.h>

#include <algorithm>

/// What an essence element holds, as MXFGCElementKey has it, or "essence". Private keys that the
/// library knows follow the standard's from the item type on.
inline const char* kindOf(KLVKey key) {
    constexpr std::uint8_t standard[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x02,
                                         0x01, 0x01, 0x0D, 0x01, 0x03, 0x01};
    std::copy(std::begin(standard), std::end(standard), key.bytes.begin());
    const auto kind = MXFGCElementKey::kind(key);
    return kind ? MXFGCElementKey::kindName(*kind) : "essence";
}
