#pragma once

#include <vexa/mxf/MXFPartitionPack.h>
#include <vexa/util/Bytes.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// The value of a partition pack on the wire (SMPTE 377M), all big-endian, no gaps:
///
///     offset size
///          0    2  majorVersion
///          2    2  minorVersion
///          4    4  kagSize
///          8    8  thisPartition
///         16    8  previousPartition
///         24    8  footerPartition
///         32    8  headerByteCount
///         40    8  indexByteCount
///         48    4  indexSID
///         52    8  bodyOffset
///         60    4  bodySID
///         64   16  operationalPattern
///         80    4  number of essence containers
///         84    4  size of each entry
///         88       entries: a key, then what an entry has beyond its 16 bytes
namespace mxf {

/// Throws util::assertion_failure for a value that isn't exactly one pack.
MXFPartitionPack decodePartitionPack(const util::Bytes& value);

util::Bytes encodePartitionPack(const MXFPartitionPack& pack);

} // namespace mxf

} // namespace vexa_toolkit
