#pragma once

#include "klv/keyLiteral.h"

#include <vexa/gc/MXFGCSystemHandler.h>
#include <vexa/gc/system/MXFSDTICPSystemMetadata.h>

#include <cstddef>
#include <cstdint>
#include <optional>

inline namespace vexa_toolkit {

/// An SDTI-CP system item on the wire (SMPTE 326M, 385M). It opens with the system metadata pack, a
/// fixed length pack of 57 bytes, its integers big-endian:
///
///     offset size
///          0    1  systemMetadataBitmap
///          1    1  contentPackageRate
///          2    1  contentPackageType
///          3    2  channelHandle
///          5    2  continuityCount
///          7   16  essenceContainer
///         23   17  creationStamp
///         40   17  userStamp
///
/// Local sets follow, told apart by byte 14 of their keys. Byte 15 is the number of items of a
/// metadata set.
///
///     06 0E 2B 34 02 43 01 01 0D 01 03 01 04 01 02 nn  package metadata: 1-byte tags,
///                                               03 nn  picture metadata   2-byte lengths
///                                               04 nn  sound metadata
///                                               05 nn  data metadata
///     06 0E 2B 34 02 63 01 01 0D 01 03 01 04 01 06 00  control data: 1-byte tag, 4-byte length
namespace gcsystem {

using klvutil::operator""_key;

constexpr KLVKey systemMetadataKey = "060E2B34.02050101.0D010301.04010100"_key;

constexpr std::size_t kindByte = 14;
constexpr std::size_t countByte = 15;

enum class SystemSet : std::uint8_t {
    Package = 0x02,
    Picture = 0x03,
    Sound = 0x04,
    Data = 0x05,
    Control = 0x06,
};

/// Whether it is a local set such as those above, of whatever kind.
bool isSystemSet(const KLVKey& key);

/// None for a set of another kind, or whose kind goes with other widths.
std::optional<SystemSet> kindOf(const KLVKey& key);

/// The key of a metadata set has room for the low 8 bits of the count.
KLVKey keyOf(SystemSet kind, std::size_t itemCount);

/// Throws util::assertion_failure "valid external length" unless there are 57 bytes.
MXFSDTICPSystemMetadata decodeSystemMetadata(const MXFGCSystemHandler::Bytes& value);

MXFGCSystemHandler::Bytes encodeSystemMetadata(const MXFSDTICPSystemMetadata& pack);

} // namespace gcsystem

} // namespace vexa_toolkit
