#pragma once

#include "metadata/primed/primerLookup.h"

#include <vexa/metadata/MXFPrimedSet.h>

#include <cstdint>

inline namespace vexa_toolkit {

class KLVHandler;

namespace metadata {

/// Sends a set into a handler, as a local set of the widths in its key's byte 5 (SMPTE 336M). Items
/// go in the order of their keys, those that the set's order hint names first. Private properties
/// stay out.
///
/// Items with BER lengths use the short form, or the long form of 3 octets from 128 bytes on;
/// after such a set `restoringForm` is told.
///
/// The checks are "valid local set key", "supported tag type", "valid property key" (it has no tag)
/// and "no repeated properties in order hint". An order hint that can't be read is
/// util::assertion_failure, too.
void writePrimedSet(KLVHandler& out, const KeyToTag& tags, const MXFPrimedSet& set,
                    std::uint8_t restoringForm);

} // namespace metadata

} // namespace vexa_toolkit
