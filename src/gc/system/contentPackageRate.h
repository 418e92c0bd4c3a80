#pragma once

#include <vexa/metadata/MXFRational.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Frame rates as system items know them. Rates are compared by value: 50/2 is 25/1.
namespace gcsystem {

/// The rate byte of a system metadata pack, as in MXFSDTICPSystemMetadata, for whole rates up to 60
/// and for 1000/1001 of 24, 30, 48 and 60.
///
/// Throws util::assertion_failure "valid edit rate" for any other.
std::uint8_t contentPackageRate(const MXFRational& editRate);

/// The same for all whole rates, up to 120. Throws util::assertion_failure "valid frame rate" for
/// any other.
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

} // namespace vexa_toolkit
