#pragma once

#include "klv/keyLiteral.h"

#include <vexa/gc/MXFGCSystemHandler.h>
#include <vexa/gc/system/MXFTimecode.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// A proxy system item on the wire: a local set with 2-byte tags and lengths, all big-endian.
///
///     0101  frameCount  u32; left out if it is 0
///     0102  timecodes   u32 count, u32 size of an item (8), the items: the 8 bytes of a timecode
///
/// A reader accepts larger items.
namespace gcsystem {

using klvutil::operator""_key;

constexpr KLVKey proxySystemKey = "060E2B34.02530101.0D010301.14020100"_key;
constexpr std::uint32_t frameCountTag = 0x0101;
constexpr std::uint32_t timecodesTag = 0x0102;

/// Throws util::assertion_failure for a value that isn't exactly one number.
std::uint32_t decodeFrameCount(const MXFGCSystemHandler::Bytes& value);

/// Throws util::assertion_failure for a value that isn't exactly one batch. `timecodes` then holds
/// what is whole.
void decodeTimecodes(const MXFGCSystemHandler::Bytes& value, std::vector<MXFTimecode>& timecodes);

MXFGCSystemHandler::LocalItems encodeProxySystemItem(std::uint32_t frameCount,
                                                     const std::vector<MXFTimecode>& timecodes);

} // namespace gcsystem

} // namespace vexa_toolkit
