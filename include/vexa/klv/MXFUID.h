#pragma once

#include <vexa/Export.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>

inline namespace vexa_toolkit {

/// A 16-byte identifier, compared and ordered over all its bytes: an instance UID, a generation UID
/// or the code of a report.
struct MXFUID {
    static constexpr std::size_t size = 16;

    std::array<std::uint8_t, size> bytes{};

    constexpr std::uint8_t operator[](std::size_t i) const { return bytes[i]; }
    constexpr std::uint8_t& operator[](std::size_t i) { return bytes[i]; }

    /// The four fields of a UUID, most significant byte first, as its text form orders them.
    static constexpr MXFUID fromFields(std::uint32_t field1, std::uint16_t field2,
                                       std::uint16_t field3,
                                       const std::array<std::uint8_t, 8>& field4) {
        MXFUID uid;
        for (std::size_t i = 0; i < 4; ++i) {
            uid[i] = static_cast<std::uint8_t>(field1 >> (24 - 8 * i));
        }
        for (std::size_t i = 0; i < 2; ++i) {
            uid[4 + i] = static_cast<std::uint8_t>(field2 >> (8 - 8 * i));
            uid[6 + i] = static_cast<std::uint8_t>(field3 >> (8 - 8 * i));
        }
        for (std::size_t i = 0; i < field4.size(); ++i) {
            uid[8 + i] = field4[i];
        }
        return uid;
    }
};

constexpr bool operator==(const MXFUID& a, const MXFUID& b) {
    for (std::size_t i = 0; i < MXFUID::size; ++i) {
        if (a[i] != b[i]) {
            return false;
        }
    }
    return true;
}

constexpr bool operator!=(const MXFUID& a, const MXFUID& b) {
    return !(a == b);
}

inline bool operator<(const MXFUID& a, const MXFUID& b) {
    return a.bytes < b.bytes;
}

/// Writes the identifier as a UUID: 4C4A0001-95D8-11E1- and so on; the stream's flags and fill stay
/// as they were.
VEXA_EXPORT std::ostream& operator<<(std::ostream& out, const MXFUID& uid);

} // namespace vexa_toolkit
