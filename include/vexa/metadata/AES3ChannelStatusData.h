#pragma once

#include <array>
#include <cstdint>

inline namespace vexa_toolkit {

/// The channel status block of an AES3 channel (SMPTE 382M, AES3).
struct AES3ChannelStatusData {
    std::array<std::uint8_t, 24> bytes{};
};

inline bool operator==(const AES3ChannelStatusData& a, const AES3ChannelStatusData& b) {
    return a.bytes == b.bytes;
}

inline bool operator!=(const AES3ChannelStatusData& a, const AES3ChannelStatusData& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
