#pragma once

#include <vexa/Export.h>
#include <vexa/gc/TimecodeNumbers.h>

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

/// What stands in a timecode.
namespace gcsystem {

/// Any digits, 15 included: files hold them. `base` says where the field mark is, as in
/// MXFTimecode.
///
/// Throws util::assertion_failure "valid rounded timecode base" unless it is 24, 25 or 30.
VEXA_EXPORT TimecodeNumbers numbersOf(const MXFTimecode& timecode, std::uint32_t base);

/// The same without the field mark.
VEXA_EXPORT TimecodeNumbers numbersOf(const MXFTimecode& timecode);

/// Sets the numbers, and leaves all other flags and the binary groups as they are.
///
/// Throws util::assertion_failure "valid rounded timecode base" as above, and "valid tens" for more
/// than 39 frames, 79 seconds or minutes, or 29 hours.
VEXA_EXPORT void setNumbers(MXFTimecode& timecode, const TimecodeNumbers& numbers,
                            std::uint32_t base);

/// The timecode of a count within 24 hours, which the calculator doesn't bring back into the day.
/// Any sub-frame but the first sets the field mark. Throws as setNumbers().
VEXA_EXPORT MXFTimecode timecodeAt(const TimecodeCalculator& calculator, std::uint32_t count,
                                   std::uint32_t base);

} // namespace gcsystem

} // namespace vexa_toolkit
