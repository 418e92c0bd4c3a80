#pragma once

#include <vexa/klv/KLVKey.h>

#include <array>
#include <cstdint>

inline namespace vexa_toolkit {

/// A date and time stamp (SMPTE 326M). The first byte says what the others hold: 0 nothing, 81
/// hexadecimal a timecode in the 8 bytes behind it.
using MXFSystemStamp = std::array<std::uint8_t, 17>;

/// The system metadata pack that opens an SDTI-CP system item (SMPTE 326M, 385M). Files may hold
/// any values.
struct MXFSDTICPSystemMetadata {
    /// Bit 7: the edit unit has forward error correction; bit 6: essenceContainer is meaningful;
    /// bit 5: creationStamp is present; bit 4: userStamp is; bit 3: the edit unit has picture; bit
    /// 2: sound; bit 1: data; bit 0: control data follows.
    std::uint8_t systemMetadataBitmap = 0;
    /// Bits 1 to 5: the rate in content packages a second; bit 0: it is 1000/1001 of that.
    ///
    ///     1 is 24   4 is 48   7 is 72   10 is  96
    ///     2 is 25   5 is 50   8 is 75   11 is 100
    ///     3 is 30   6 is 60   9 is 90   12 is 120
    std::uint8_t contentPackageRate = 0;
    /// How the content package was sent: stream status, transfer mode and timing mode. Usually 0.
    std::uint8_t contentPackageType = 0;
    /// One higher in each edit unit, modulo 65536.
    std::uint16_t continuityCount = 0;
    /// Tells streams of content packages apart that share a transport. Usually 0.
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

} // namespace vexa_toolkit
