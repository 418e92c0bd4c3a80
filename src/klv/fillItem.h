#pragma once

#include <vexa/klv/KLVKey.h>

#include <cstdint>
#include <ios>

inline namespace vexa_toolkit {

/// Fill items (SMPTE 377M, KLV fill item).
namespace klvutil {

/// Files carry it in registry versions 1 and 2, which are one key to a comparison.
constexpr KLVKey fillItemKey{{0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x01, 0x03, 0x01, 0x02,
                              0x10, 0x01, 0x00, 0x00, 0x00}};

/// The registry version of the fill items on a stream, 0 while undecided. It is kept on the stream
/// object, so that whoever reads and writes the same stream agrees.
std::uint8_t fillKeyVersion(std::ios_base& stream);
void setFillKeyVersion(std::ios_base& stream, std::uint8_t version);

} // namespace klvutil

} // namespace vexa_toolkit
