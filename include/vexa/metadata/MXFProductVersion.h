#pragma once

#include <cstdint>

/// The version of a product (SMPTE 377M, ProductVersion).
struct MXFProductVersion {
    std::uint16_t majorVersion = 0;
    std::uint16_t minorVersion = 0;
    std::uint16_t patchVersion = 0;
    std::uint16_t buildVersion = 0;
    std::uint16_t releaseVersion = 0;
};
