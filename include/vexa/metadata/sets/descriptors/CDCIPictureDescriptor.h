#pragma once

#include <vexa/metadata/sets/descriptors/PictureDescriptor.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Picture as luma and colour difference components (SMPTE 377M, CDCIEssenceDescriptor).
class VEXA_EXPORT CDCIPictureDescriptor : public PictureDescriptor {
    VEXA_CONCRETE_SET(CDCIPictureDescriptor);

    /// Bits of a sample that are used, such as 8 or 10.
    VEXA_REQUIRED(std::uint32_t, ComponentDepth, componentDepth);

    /// Luma samples for one colour difference sample in a line: 1, 2 or 4.
    VEXA_REQUIRED(std::uint32_t, HorizontalSubsampling, horizontalSubsampling);

    /// The same down the picture: 1, or 2 for 4:2:0.
    VEXA_OPTIONAL(std::uint32_t, VerticalSubsampling, verticalSubsampling);

    /// Where colour difference samples lie: 0 cosited, 1 horizontal mid-point, 2 three-tap, 3
    /// quincunx, 4 as in ITU-R BT.601 (deprecated, now 0), 5 line alternating, 6 vertical
    /// mid-point, 255 unknown.
    VEXA_OPTIONAL(std::uint8_t, ColourSiting, colourSiting);

    /// False for the order of ITU-R BT.601, colour difference before luma (Cb, Y, Cr, Y).
    VEXA_OPTIONAL(bool, ReversedByteOrder, reversedByteOrder);

    /// Bits that fill a pixel up to its stored size.
    VEXA_OPTIONAL(std::int16_t, PaddingBits, paddingBits);

    /// Bits of an alpha sample; 0 where there is no alpha.
    VEXA_OPTIONAL(std::uint32_t, AlphaSamplingDepth, alphaSamplingDepth);

    /// Luma value of black, such as 16 of 8 bits or 64 of 10.
    VEXA_OPTIONAL(std::uint32_t, BlackReferenceLevel, blackReferenceLevel);

    /// Luma value of white, such as 235 of 8 bits or 940 of 10.
    VEXA_OPTIONAL(std::uint32_t, WhiteReferenceLevel, whiteReferenceLevel);

    /// Number of colour difference values, such as 225 of 8 bits or 897 of 10.
    VEXA_OPTIONAL(std::uint32_t, ColourRange, colourRange);
};

VEXA_SET_FACTORY(CDCIPictureDescriptor, PictureDescriptor);

} // namespace vexa_toolkit
