#pragma once

#include "klv/keyLiteral.h"
#include "klv/writeElements.h"

#include <vexa/index/MXFIndexTableSegment.h>
#include <vexa/metadata/MXFPrimedSet.h>
#include <vexa/metadata/MXFPrimer.h>

#include <vector>

inline namespace vexa_toolkit {

class ErrorHandler;

/// An index table segment on the wire (SMPTE 377M): a local set with 2-byte tags and lengths, its
/// integers big-endian. The items stand in this order:
///
///     3C0A  instanceUID            16 bytes
///     3F0B  indexEditRate          i32 numerator, i32 denominator
///     3F0C  indexStartPosition     i64
///     3F0D  indexDuration          i64
///     3F05  editUnitByteCount      u32
///     3F06  indexSID               u32
///     3F07  bodySID                u32
///     3F08  sliceCount             u8
///     3F0E  posTableCount          u8
///     3F09  deltaEntryArray        u32 count, u32 size of an element (6), the elements:
///                                  i8 posTableIndex, u8 slice, u32 elementDelta
///     3F0A  indexEntryArray        u32 count, u32 size of an element, the elements:
///                                  i8 temporalOffset, i8 keyFrameOffset, u8 flags,
///                                  u64 streamOffset, u32 for each slice offset,
///                                  i32 numerator and i32 denominator for each pos table rational
///     3F11  singleIndexLocation    u8, not 0 for true
///     3F12  singleEssenceLocation  u8
///     3F13  forwardIndexDirection  u8
///
/// An empty indexEntryArray has elements of size 0. A reader accepts larger elements.
namespace mxfindex {

using klvutil::operator""_key;

constexpr KLVKey segmentKey = "060E2B34.02530101.0D010201.01100100"_key;

/// The tags above: they hold whatever a primer says.
MXFPrimer segmentPrimer();

/// Reports what is missing or wrong. A field then stays as far as it could be decoded; of an array
/// these are whole elements.
MXFIndexTableSegment decodeSegment(const MXFPrimedSet& set, ErrorHandler* errorHandler);

/// The items, in order: all, or only those that say something. posTableCount, deltaEntryArray and
/// the optional ones are never written empty. A zero instanceUID is replaced by a new one.
///
/// Throws util::assertion_failure "valid entry externalize()" where the entries differ in size, and
/// what checkEntries() throws.
std::vector<klvutil::LocalItem> encodeSegment(const MXFIndexTableSegment& segment,
                                              bool allProperties);

/// Throws util::assertion_failure "valid sliceOffsets" or "valid posTables" unless each entry has
/// as many as the segment says.
void checkEntries(const MXFIndexTableSegment& segment);

} // namespace mxfindex

} // namespace vexa_toolkit
