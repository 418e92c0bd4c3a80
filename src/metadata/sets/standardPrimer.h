#pragma once

#include "metadata/primed/primerLookup.h"

inline namespace vexa_toolkit {

namespace metadata {

/// The tags that SMPTE 377M fixes: those of its structural sets, its descriptors, and index table
/// segments.
const PrimerTable& standardPrimer();

} // namespace metadata

} // namespace vexa_toolkit
