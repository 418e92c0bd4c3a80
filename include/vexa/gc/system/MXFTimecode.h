#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

/// A timecode as system items carry it (SMPTE 12M): binary-coded decimals with flags, then the
/// binary groups. All zero is 00:00:00:00.
///
///     byte 0     frames:   bits 0-3 units, 4-5 tens, 6 drop frame, 7 colour frame
///     byte 1     seconds:  bits 0-3 units, 4-6 tens, 7 field mark unless the base is 25
///     byte 2     minutes:  bits 0-3 units, 4-6 tens, 7 flag
///     byte 3     hours:    bits 0-3 units, 4-5 tens, 6 flag, 7 field mark if the base is 25
///     bytes 4-7  binary groups
///
/// The base is the number of frames that a second counts: 24, 25 or 30. At twice that rate the
/// field mark tells the second frame of two that have the same numbers. Files may hold any bytes.
struct MXFTimecode {
    static constexpr std::size_t size = 8;

    std::array<std::uint8_t, size> bytes{};
};

inline bool operator==(const MXFTimecode& a, const MXFTimecode& b) {
    return a.bytes == b.bytes;
}

inline bool operator!=(const MXFTimecode& a, const MXFTimecode& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
