#pragma once

#include "klv/KLVKeyMask.h"

#include <cstddef>
#include <cstdint>

/// The keys of Generic Container elements (SMPTE 379M).
///
///     byte 0-11  the pattern of system or of essence elements
///     byte 12    item type; content package items have the low ones (SMPTE 326M, 385M)
///     byte 13    count of elements in the item
///     byte 14    element type
///     byte 15    element number
namespace mxfgc {

/// The largest length that 4 octets of BER code. A system element, or an essence element without a
/// buffer, that is longer isn't gathered.
constexpr std::uint64_t longestWholeElement = 0xFFFFFF;

/// The BER form of the lengths of longer elements: 8 octets in all.
constexpr std::uint8_t longBERForm = 0x87;

namespace keys {

constexpr std::size_t itemType = 12;

constexpr KLVKeyMask systemElement(KLVKey{
    {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x00, 0x01, 0x00, 0x0D, 0x01, 0x03, 0x01}});
constexpr KLVKeyMask essenceElement(KLVKey{
    {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x02, 0x01, 0x00, 0x0D, 0x01, 0x03, 0x01}});

constexpr bool isSystem(const KLVKey& key) {
    return systemElement.matches(key) && (key[itemType] == 0x14 || key[itemType] == 0x04);
}
constexpr bool isEssence(const KLVKey& key) {
    return essenceElement.matches(key);
}
constexpr bool isPicture(const KLVKey& key) {
    return isEssence(key) && (key[itemType] == 0x15 || key[itemType] == 0x05);
}
constexpr bool isSound(const KLVKey& key) {
    return isEssence(key) && (key[itemType] == 0x16 || key[itemType] == 0x06);
}
constexpr bool isData(const KLVKey& key) {
    return isEssence(key) && (key[itemType] == 0x17 || key[itemType] == 0x07);
}
constexpr bool isCompound(const KLVKey& key) {
    return isEssence(key) && key[itemType] == 0x18;
}

} // namespace keys

} // namespace mxfgc
