#pragma once

#include <vexa/klv/KLVKey.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// The keys of the packs that make up a file's structure (SMPTE 377M).
namespace mxf::keys {

constexpr KLVKey structurePack(std::uint8_t kind, std::uint8_t status) {
    return {{0x06, 0x0E, 0x2B, 0x34, 0x02, 0x05, 0x01, 0x01, 0x0D, 0x01, 0x02, 0x01, 0x01, kind,
             status, 0x00}};
}

constexpr KLVKey randomIndex = structurePack(0x11, 0x01);

} // namespace mxf::keys

} // namespace vexa_toolkit
