#include "klv/KLVKeyMask.h"
#include "klv/keyLiteral.h"

#include <vexa/gc/MXFGCElementKey.h>

inline namespace vexa_toolkit {

namespace {

using klvutil::operator""_key;

constexpr KLVKeyMask systemElement("060E2B34.02000100.0D010301.00000000"_key);
constexpr KLVKeyMask essenceElement("060E2B34.01020100.0D010301.00000000"_key);

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

} // namespace

boost::optional<MXFGCElementKey::Kind> MXFGCElementKey::kind(const KLVKey& key) {
    switch (key[itemTypeByte]) {
    case CPSystem:
    case GCSystem:
        return boost::make_optional(systemElement.matches(key), System);
    case CPPicture:
    case GCPicture:
        return boost::make_optional(isEssence(key), Picture);
    case CPSound:
    case GCSound:
        return boost::make_optional(isEssence(key), Sound);
    case CPData:
    case GCData:
        return boost::make_optional(isEssence(key), Data);
    case GCCompound:
        return boost::make_optional(isEssence(key), Compound);
    default:
        return boost::none;
    }
}

const char* MXFGCElementKey::kindName(Kind kind) {
    switch (kind) {
    case System:
        return "system";
    case Picture:
        return "picture";
    case Sound:
        return "sound";
    case Data:
        return "data";
    case Compound:
        return "compound";
    }
    return "";
}

bool MXFGCElementKey::isSystem(const KLVKey& key) {
    return kind(key) == System;
}

bool MXFGCElementKey::isEssence(const KLVKey& key) {
    return essenceElement.matches(key);
}

bool MXFGCElementKey::isPicture(const KLVKey& key) {
    return kind(key) == Picture;
}

bool MXFGCElementKey::isSound(const KLVKey& key) {
    return kind(key) == Sound;
}

bool MXFGCElementKey::isData(const KLVKey& key) {
    return kind(key) == Data;
}

bool MXFGCElementKey::isCompound(const KLVKey& key) {
    return kind(key) == Compound;
}

std::uint32_t MXFGCElementKey::trackNumber(const KLVKey& key) {
    return std::uint32_t{key[12]} << 24 | std::uint32_t{key[13]} << 16 |
           std::uint32_t{key[14]} << 8 | key[15];
}

std::uint8_t MXFGCElementKey::elementCount(const KLVKey& key) {
    return key[13];
}

std::uint8_t MXFGCElementKey::elementType(const KLVKey& key) {
    return key[14];
}

std::uint8_t MXFGCElementKey::elementNumber(const KLVKey& key) {
    return key[15];
}

} // namespace vexa_toolkit
