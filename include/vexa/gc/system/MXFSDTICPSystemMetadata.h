#pragma once

#include <vexa/klv/KLVKey.h>

#include <array>
#include <cstdint>

/// A date and time stamp (SMPTE 326M). The first byte says what the others hold: 0 nothing, 81
/// hexadecimal a timecode in the 8 bytes behind it.
using MXFSystemStamp = std::array<std::uint8_t, 17>;

/// The system metadata pack that opens an SDTI-CP system item (SMPTE 326M, 385M). Files may hold
/// any values.
struct MXFSDTICPSystemMetadata {
    /// Bit 6: essenceContainer is meaningful; bit 5: creationStamp is present; bit 4: userStamp is;
    /// bit 3: the edit unit has picture; bit 2: sound; bit 1: data; bit 0: control data follows.
    std::uint8_t systemMetadataBitmap = 0;
    /// Bits 1 to 5: 1 is 24 content packages a second, 2 is 25, 3 is 30, 4 is 48, 5 is 50, 6 is 60;
    /// bit 0: the rate is 1000/1001 of that.
    std::uint8_t contentPackageRate = 0;
    std::uint8_t contentPackageType = 0;
    /// One higher in each edit unit, modulo 65536.
    std::uint16_t continuityCount = 0;
    std::uint16_t channelHandle = 0;
    KLVKey essenceContainer;
    MXFSystemStamp creationStamp{};
    MXFSystemStamp userStamp{};
};

inline bool operator==(const MXFSDTICPSystemMetadata& a, const MXFSDTICPSystemMetadata& b) {
    return a.systemMetadataBitmap == b.systemMetadataBitmap &&
           a.contentPackageRate == b.contentPackageRate &&
           a.contentPackageType == b.contentPackageType && a.continuityCount == b.continuityCount &&
           a.channelHandle == b.channelHandle && a.essenceContainer == b.essenceContainer &&
           a.creationStamp == b.creationStamp && a.userStamp == b.userStamp;
}

inline bool operator!=(const MXFSDTICPSystemMetadata& a, const MXFSDTICPSystemMetadata& b) {
    return !(a == b);
}
