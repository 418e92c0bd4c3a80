#pragma once

#include <vexa/metadata/RGBALayout.h>
#include <vexa/metadata/sets/descriptors/PictureDescriptor.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// Picture as RGB components, or as indexes into a palette (SMPTE 377M, RGBAEssenceDescriptor).
class VEXA_EXPORT RGBAPictureDescriptor : public PictureDescriptor {
    VEXA_CONCRETE_SET(RGBAPictureDescriptor);

    /// Value of a component for full intensity.
    VEXA_OPTIONAL(std::uint32_t, ComponentMaxReferenceLevel, componentMaxReferenceLevel);

    /// Value of a component for no intensity.
    VEXA_OPTIONAL(std::uint32_t, ComponentMinReferenceLevel, componentMinReferenceLevel);

    /// Highest value of alpha.
    VEXA_OPTIONAL(std::uint32_t, AlphaMaxReferenceLevel, alphaMaxReferenceLevel);

    /// Lowest value of alpha.
    VEXA_OPTIONAL(std::uint32_t, AlphaMinReferenceLevel, alphaMinReferenceLevel);

    /// 0 for lines from left to right, top to bottom; 1 to 7 for the other orders.
    VEXA_OPTIONAL(std::uint8_t, ScanningDirection, scanningDirection);

    /// Components of a pixel.
    VEXA_REQUIRED(RGBALayout, PixelLayout, pixelLayout);

    /// Entries one behind the other, each laid out as `paletteLayout` says.
    VEXA_OPTIONAL(std::vector<std::uint8_t>, Palette, palette);

    /// Components of an entry of the palette.
    VEXA_OPTIONAL(RGBALayout, PaletteLayout, paletteLayout);
};

VEXA_SET_FACTORY(RGBAPictureDescriptor, PictureDescriptor);

} // namespace vexa_toolkit
