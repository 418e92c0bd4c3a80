#pragma once

#include <vexa/mxf/MXFRandomIndex.h>
#include <vexa/util/Bytes.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// The value of a random index pack on the wire (SMPTE 377M), all big-endian:
///
///     12 bytes for each entry:  u32 bodySID, u64 byteOffset
///      4 bytes:                 overall length of the pack: key, BER length and value
namespace mxf {

/// `form` is the BER form of the pack's length; with klvutil::noBERForm the overall length isn't
/// checked. Throws util::assertion_failure for a value that isn't exactly one table. A table
/// without entries is decoded.
MXFRandomIndex decodeRandomIndex(const util::Bytes& value, std::uint8_t form);

/// Throws util::assertion_failure "correct overall length" where that doesn't fit in 32 bits, and
/// "valid BER length form".
util::Bytes encodeRandomIndex(const MXFRandomIndex& table, std::uint8_t form);

} // namespace mxf

} // namespace vexa_toolkit
