#pragma once

#include "klv/KLVKeyMask.h"
#include "klv/keyLiteral.h"

#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

/// The keys of Generic Container elements (SMPTE 379M).
///
///     byte 0-11  the pattern of system or of essence elements
///     byte 12    item type
///     byte 13    count of elements in the item
///     byte 14    element type
///     byte 15    element number
namespace mxfgc::keys {

using klvutil::operator""_key;

constexpr std::size_t itemTypeByte = 12;

/// Those of content packages (SMPTE 326M, 385M) come first.
enum ItemType : std::uint8_t {
    CPSystem = 0x04,
    CPPicture = 0x05,
    CPSound = 0x06,
    CPData = 0x07,
    GCSystem = 0x14,
    GCPicture = 0x15,
    GCSound = 0x16,
    GCData = 0x17,
    GCCompound = 0x18,
};

constexpr KLVKeyMask systemElement("060E2B34.02000100.0D010301.00000000"_key);
constexpr KLVKeyMask essenceElement("060E2B34.01020100.0D010301.00000000"_key);

constexpr bool hasType(const KLVKey& key, ItemType cpType, ItemType gcType) {
    return key[itemTypeByte] == cpType || key[itemTypeByte] == gcType;
}

constexpr bool isSystem(const KLVKey& key) {
    return systemElement.matches(key) && hasType(key, CPSystem, GCSystem);
}
constexpr bool isEssence(const KLVKey& key) {
    return essenceElement.matches(key);
}
constexpr bool isPicture(const KLVKey& key) {
    return isEssence(key) && hasType(key, CPPicture, GCPicture);
}
constexpr bool isSound(const KLVKey& key) {
    return isEssence(key) && hasType(key, CPSound, GCSound);
}
constexpr bool isData(const KLVKey& key) {
    return isEssence(key) && hasType(key, CPData, GCData);
}
constexpr bool isCompound(const KLVKey& key) {
    return isEssence(key) && key[itemTypeByte] == GCCompound;
}

} // namespace mxfgc::keys

} // namespace vexa_toolkit
