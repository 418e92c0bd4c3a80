#pragma once

#include <cstdint>

inline namespace vexa_toolkit {

/// How strictly a front checks the files that it reads against the supported profiles.
struct VEXAValidationMode {
    enum Enum : std::uint32_t {
        /// No profile is checked.
        Off = 0,
        /// Any essence container that the library supports is accepted.
        Full = 1,
        /// D-10 and AVC only, by the narrower profile. Here a content package may hold essence of
        /// several kinds without a system item.
        Restricted = 2,
    };
};

} // namespace vexa_toolkit
