#pragma once

#include <vexa/klv/KLVKey.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// One row of a primer: the tag that stands for a property's key in local sets.
struct MXFPrimerEntry {
    std::uint16_t tag = 0;
    KLVKey key;
};

/// The value of a primer pack (SMPTE 377M, primer pack), in the order of the file.
using MXFPrimer = std::vector<MXFPrimerEntry>;

} // namespace vexa_toolkit
