#pragma once

#include <vexa/Export.h>
#include <vexa/gc/system/MXFSDTICPSystemMetadata.h>
#include <vexa/gc/system/MXFTimecode.h>

#include <boost/optional.hpp>

inline namespace vexa_toolkit {

/// User stamps with timecodes (SMPTE 326M, 12M): byte 0 is 81 hexadecimal, bytes 1 to 8 are those
/// of the timecode, bytes 9 to 16 are 0.
namespace gcsystem {

/// The stamp of a timecode.
VEXA_EXPORT MXFSystemStamp stampOf(const MXFTimecode& timecode);

/// None if the stamp isn't a timecode, whatever its digits.
VEXA_EXPORT boost::optional<MXFTimecode> timecodeOf(const MXFSystemStamp& stamp);

} // namespace gcsystem

} // namespace vexa_toolkit
