#pragma once

#include "klv/keyLiteral.h"

#include <vexa/metadata/MXFPrimer.h>

#include <cstdint>
#include <string>
#include <vector>

inline namespace vexa_toolkit {

/// Primer packs (SMPTE 377M, primer pack).
namespace metadata {

using klvutil::operator""_key;

constexpr KLVKey primerPackKey = "060E2B34.02050101.0D010201.01050100"_key;

/// The value of a primer pack:
///
///     4   count of items
///     4   size of an item, 18 or more
///     then each item:
///     2   local tag
///     16  key of the property
///     what an item has beyond these is skipped
///
/// Throws util::assertion_failure "valid external length" for smaller items and for bytes left
/// over, another text where the value runs dry.
MXFPrimer decodePrimer(const std::vector<std::uint8_t>& value);
std::vector<std::uint8_t> encodePrimer(const MXFPrimer& primer);

/// A tag as 3c.0a, for reports; the low 16 bits count.
std::string describeTag(std::uint32_t tag);

/// A row as { 3c.0a, 06.0E.2B.34. and so on }, for reports.
std::string describe(const MXFPrimerEntry& entry);

} // namespace metadata

} // namespace vexa_toolkit
