#pragma once

#include <vexa/Export.h>
#include <vexa/gc/system/MXFSDTICPSystemMetadata.h>
#include <vexa/gc/system/MXFTimecode.h>

#include <cstdint>
#include <optional>

inline namespace vexa_toolkit {

class TimecodeCalculator;

/// User stamps with timecodes (SMPTE 326M, 12M): byte 0 is 81 hexadecimal, bytes 1 to 8 are those
/// of the timecode, bytes 9 to 16 are 0.
namespace gcsystem {

/// The stamp of a timecode.
VEXA_EXPORT MXFSystemStamp stampOf(const MXFTimecode& timecode);

/// None if the stamp isn't a timecode, whatever its digits.
VEXA_EXPORT std::optional<MXFTimecode> timecodeOf(const MXFSystemStamp& stamp);

/// What a timecode says.
struct TimecodeNumbers {
    std::uint8_t hours = 0;
    std::uint8_t minutes = 0;
    std::uint8_t seconds = 0;
    std::uint8_t frames = 0;
    bool dropFrame = false;
    /// At double rates, the second of two frames.
    bool fieldMark = false;
};

/// Any digits, 15 included: files hold them. `base` says where the field mark is, as in
/// MXFTimecode.
///
/// Throws util::assertion_failure "valid rounded timecode base" unless it is 24, 25 or 30.
VEXA_EXPORT TimecodeNumbers numbersOf(const MXFTimecode& timecode, std::uint32_t base);

/// Sets the numbers, and leaves all other flags and the binary groups as they are.
///
/// Throws util::assertion_failure "valid rounded timecode base" as above, and "valid tens" for more
/// than 39 frames, 79 seconds or minutes, or 29 hours.
VEXA_EXPORT void setNumbers(MXFTimecode& timecode, const TimecodeNumbers& numbers,
                            std::uint32_t base);

/// The timecode of a count within 24 hours, which the calculator doesn't bring back into the day.
/// Any sub-frame but the first sets the field mark. Throws as setNumbers().
VEXA_EXPORT MXFTimecode timecodeAt(const TimecodeCalculator& calculator, std::uint32_t count,
                                   bool dropFrame, std::uint32_t base);

} // namespace gcsystem

} // namespace vexa_toolkit
