#pragma once

#include <vexa/metadata/MXFPrimer.h>

#include <cstdint>
#include <optional>

inline namespace vexa_toolkit {

/// The tags that SMPTE 377M fixes.
namespace metadata {

/// The properties of the structural sets, the descriptors and index table segments. It is put
/// together where the sets are, in sets/.
const MXFPrimer& standardPrimerTable();

/// What index table segments need of a primer.
const MXFPrimer& indexPrimerTable();

std::optional<KLVKey> standardKey(std::uint16_t tag);
std::optional<std::uint16_t> standardTag(const KLVKey& key);

} // namespace metadata

} // namespace vexa_toolkit
