#pragma once

#include <vexa/metadata/MXFRational.h>

#include <cstdint>

/// Frame rates as system items know them. Rates are compared by value: 50/2 is 25/1.
namespace gcsystem {

/// The rate byte of a system metadata pack (SMPTE 326M): bit 0 is set for 1000/1001 of a rate.
///
///     24 02   24000/1001 03   30 06   30000/1001 07   50 0A
///     25 04   48000/1001 09   48 08   60000/1001 0D   60 0C
///
/// Throws util::assertion_failure "valid edit rate" for any other.
std::uint8_t contentPackageRate(const MXFRational& editRate);

/// The same for whole rates, which here may also be 72 0E, 75 10, 90 12, 96 14, 100 16 or 120 18.
/// Throws util::assertion_failure "valid frame rate" for any other.
std::uint8_t contentPackageRate(std::uint32_t framesPerSecond);

/// Whether a timecode counts every second frame: at 48000/1001, 48, 50, 60000/1001 and 60.
bool isDoubleRate(const MXFRational& editRate);

/// The whole numbers of frames that a second of timecode counts: the edit rate, rounded to the
/// nearest, and halved for a double rate.
///
/// Throws util::assertion_failure "non-zero edit rate denominator", or "valid rounded timecode
/// base" for a negative rate.
std::uint32_t roundedTimecodeBase(const MXFRational& editRate);

} // namespace gcsystem
