#pragma once

#include <cstdint>

inline namespace vexa_toolkit {

/// The version of a product (SMPTE 377M, ProductVersion).
struct MXFProductVersion {
    std::uint16_t majorVersion = 0;
    std::uint16_t minorVersion = 0;
    std::uint16_t patchVersion = 0;
    std::uint16_t buildVersion = 0;
    /// 0 unknown, 1 released, 2 development, 3 patched, 4 beta, 5 private build.
    std::uint16_t releaseVersion = 0;
};

constexpr bool operator==(const MXFProductVersion& a, const MXFProductVersion& b) {
    return a.majorVersion == b.majorVersion && a.minorVersion == b.minorVersion &&
           a.patchVersion == b.patchVersion && a.buildVersion == b.buildVersion &&
           a.releaseVersion == b.releaseVersion;
}

constexpr bool operator!=(const MXFProductVersion& a, const MXFProductVersion& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
