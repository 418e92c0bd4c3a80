#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/sets/descriptors/FileDescriptor.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// Picture (SMPTE 377M, GenericPictureEssenceDescriptor). Heights are those of one field where the
/// frame layout has fields apart. The sampled rectangle lies within the stored one, the displayed
/// one within the sampled.
class VEXA_EXPORT PictureDescriptor : public FileDescriptor {
    VEXA_CONCRETE_SET(PictureDescriptor);

    /// 0 none, 1 ITU-R BT.601, 2 ITU-R BT.1358, 3 SMPTE 347M, 4 SMPTE 274M, 5 SMPTE 296M, 6 SMPTE
    /// 349M, 7 SMPTE 428-1.
    VEXA_OPTIONAL(std::uint8_t, SignalStandard, signalStandard);

    /// 0 full frame, 1 separate fields, 2 single field, 3 mixed fields, 4 segmented frame. A new
    /// descriptor has 255, unknown.
    VEXA_REQUIRED(std::uint8_t, FrameLayout, frameLayout);

    /// Pixels that the essence holds, with padding.
    VEXA_REQUIRED(std::uint32_t, StoredWidth, storedWidth);

    /// Lines that the essence holds, with padding and blanking lines.
    VEXA_REQUIRED(std::uint32_t, StoredHeight, storedHeight);

    /// Topness adjustment of the stored second field, in lines.
    VEXA_OPTIONAL(std::int32_t, StoredF2Offset, storedF2Offset);

    /// Pixels; absent for the stored width.
    VEXA_OPTIONAL(std::uint32_t, SampledWidth, sampledWidth);

    /// Lines; absent for the stored height.
    VEXA_OPTIONAL(std::uint32_t, SampledHeight, sampledHeight);

    /// Pixels from the stored rectangle's left edge; absent is 0.
    VEXA_OPTIONAL(std::int32_t, SampledXOffset, sampledXOffset);

    /// Lines from the stored rectangle's top; absent is 0.
    VEXA_OPTIONAL(std::int32_t, SampledYOffset, sampledYOffset);

    /// Lines; absent for the sampled height.
    VEXA_OPTIONAL(std::uint32_t, DisplayHeight, displayHeight);

    /// Pixels; absent for the sampled width.
    VEXA_OPTIONAL(std::uint32_t, DisplayWidth, displayWidth);

    /// Pixels from the sampled rectangle's left edge; absent is 0.
    VEXA_OPTIONAL(std::int32_t, DisplayXOffset, displayXOffset);

    /// Lines from the sampled rectangle's top; absent is 0.
    VEXA_OPTIONAL(std::int32_t, DisplayYOffset, displayYOffset);

    /// Topness adjustment of the displayed second field, in lines.
    VEXA_OPTIONAL(std::int32_t, DisplayF2Offset, displayF2Offset);

    /// Width to height of the whole picture as it is shown, such as 16/9.
    VEXA_REQUIRED(MXFRational, AspectRatio, aspectRatio);

    /// Active format code (SMPTE 2016-1), shifted left by three bits, and 4 added for a 16:9 frame.
    /// Files of version 1.2 may have the plain code.
    VEXA_OPTIONAL(std::uint8_t, ActiveFormatDescriptor, activeFormatDescriptor);

    /// First active line of each field, by the numbers of the signal standard; the second is 0 for
    /// a frame.
    VEXA_REQUIRED(std::vector<std::int32_t>, VideoLineMap, videoLineMap);

    /// 0 where the lowest alpha value is transparent, 1 where the highest is.
    VEXA_OPTIONAL(std::uint8_t, AlphaTransparency, alphaTransparency);

    /// Label of the transfer characteristic, as it is called in later editions of the standard.
    VEXA_OPTIONAL(KLVKey, CaptureGamma, captureGamma);

    /// Byte boundary to which images are aligned in storage.
    VEXA_OPTIONAL(std::uint32_t, ImageAlignmentOffset, imageAlignmentOffset);

    /// Unused bytes before the stored image.
    VEXA_OPTIONAL(std::uint32_t, ImageStartOffset, imageStartOffset);

    /// Unused bytes behind the stored image.
    VEXA_OPTIONAL(std::uint32_t, ImageEndOffset, imageEndOffset);

    /// The field that comes first in time: 1 or 2.
    VEXA_OPTIONAL(std::uint8_t, FieldDominance, fieldDominance);

    /// Label of the coding.
    VEXA_OPTIONAL(KLVKey, PictureEssenceCoding, pictureEssenceCoding);

    /// Label of the equations between RGB and luma with colour difference.
    VEXA_OPTIONAL(KLVKey, CodingEquations, codingEquations);

    /// Label of the colour primaries.
    VEXA_OPTIONAL(KLVKey, ColourPrimaries, colourPrimaries);
};

VEXA_SET_FACTORY(PictureDescriptor, FileDescriptor);

} // namespace vexa_toolkit
