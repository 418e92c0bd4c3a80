#pragma once

#include <vexa/metadata/sets/descriptors/CDCIPictureDescriptor.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Coding parameters of MPEG video (SMPTE 381M, MPEG-2 Video Descriptor; ISO/IEC 13818-2). With
/// nothing but the properties of its bases it serves for AVC intra coding, too.
class VEXA_EXPORT MPEGVideoDescriptor : public CDCIPictureDescriptor {
    VEXA_CONCRETE_SET(MPEGVideoDescriptor);

    /// Whether the essence is one MPEG sequence.
    VEXA_OPTIONAL(bool, SingleSequence, singleSequence);

    /// Whether the number of B frames between other frames is always the same.
    VEXA_OPTIONAL(bool, ConstantBFrames, constantBFrames);

    /// Scanning of the picture that was coded: 0 unknown, 1 progressive, 2 interlaced, 3 mixed.
    VEXA_OPTIONAL(std::uint8_t, CodedContentType, codedContentType);

    /// Whether the sequence is coded in low delay mode, which has no B pictures.
    VEXA_OPTIONAL(bool, LowDelay, lowDelay);

    /// Whether `closed_gop` is set in all group of pictures headers.
    VEXA_OPTIONAL(bool, ClosedGOP, closedGOP);

    /// Whether all groups of pictures have the same structure.
    VEXA_OPTIONAL(bool, IdenticalGOP, identicalGOP);

    /// Longest distance of I pictures, in pictures; 0 is no limit.
    VEXA_OPTIONAL(std::uint16_t, MaxGOP, maxGOP);

    /// Most B pictures between two other pictures.
    VEXA_OPTIONAL(std::uint16_t, BPictureCount, bPictureCount);

    /// Maximum, in bits per second.
    VEXA_OPTIONAL(std::uint32_t, BitRate, bitRate);

    /// The stream's `profile_and_level_indication`.
    VEXA_OPTIONAL(std::uint8_t, ProfileAndLevel, profileAndLevel);
};

VEXA_SET_FACTORY(MPEGVideoDescriptor, CDCIPictureDescriptor);

} // namespace vexa_toolkit
