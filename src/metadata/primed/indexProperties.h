#pragma once

#include "klv/keyLiteral.h"

#include <vexa/metadata/MXFPrimer.h>

inline namespace vexa_toolkit {

/// The properties of index table segments (SMPTE 377M, index table segment). Primers list them, and
/// EssenceContainerData sets share two of them.
namespace metadata::indexProperties {

using klvutil::operator""_key;

constexpr MXFPrimerEntry instanceUID{0x3C0A, "060E2B34.01010101.01011502.00000000"_key};
constexpr MXFPrimerEntry indexEditRate{0x3F0B, "060E2B34.01010105.05300406.00000000"_key};
constexpr MXFPrimerEntry indexStartPosition{0x3F0C, "060E2B34.01010105.07020103.010A0000"_key};
constexpr MXFPrimerEntry indexDuration{0x3F0D, "060E2B34.01010105.07020201.01020000"_key};
constexpr MXFPrimerEntry editUnitByteCount{0x3F05, "060E2B34.01010104.04060201.00000000"_key};
constexpr MXFPrimerEntry indexSID{0x3F06, "060E2B34.01010104.01030405.00000000"_key};
constexpr MXFPrimerEntry bodySID{0x3F07, "060E2B34.01010104.01030404.00000000"_key};
constexpr MXFPrimerEntry sliceCount{0x3F08, "060E2B34.01010104.04040401.01000000"_key};
constexpr MXFPrimerEntry posTableCount{0x3F0E, "060E2B34.01010105.04040401.07000000"_key};
constexpr MXFPrimerEntry deltaEntryArray{0x3F09, "060E2B34.01010105.04040401.06000000"_key};
constexpr MXFPrimerEntry indexEntryArray{0x3F0A, "060E2B34.01010105.04040402.05000000"_key};
constexpr MXFPrimerEntry singleIndexLocation{0x3F11, "060E2B34.0101010E.04040501.00000000"_key};
constexpr MXFPrimerEntry singleEssenceLocation{0x3F12, "060E2B34.0101010E.04060206.00000000"_key};
constexpr MXFPrimerEntry forwardIndexDirection{0x3F13, "060E2B34.0101010E.04040502.00000000"_key};

/// What index table segments need of a primer. The rest came later than the table.
constexpr MXFPrimerEntry primerRows[] = {instanceUID,     editUnitByteCount, indexSID,
                                         bodySID,         sliceCount,        deltaEntryArray,
                                         indexEntryArray, indexEditRate,     indexStartPosition,
                                         indexDuration};

} // namespace metadata::indexProperties

} // namespace vexa_toolkit
