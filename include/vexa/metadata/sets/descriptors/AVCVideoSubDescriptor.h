#pragma once

#include <vexa/metadata/sets/descriptors/SubDescriptor.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Coding parameters of AVC video (SMPTE 381-3, AVCSubDescriptor; ISO/IEC 14496-10).
class VEXA_EXPORT AVCVideoSubDescriptor : public SubDescriptor {
    VEXA_CONCRETE_SET(AVCVideoSubDescriptor);

    /// Whether the number of B pictures between other pictures is always the same.
    VEXA_OPTIONAL(bool, ConstantBPicture, constantBPicture);

    /// Kind of coded pictures: 0 unknown, 1 progressive frames, 2 interlaced fields, 3 interlaced
    /// frames, 4 frames and fields mixed.
    VEXA_OPTIONAL(std::uint8_t, CodedContentKind, codedContentKind);

    /// Whether all groups of pictures are closed.
    VEXA_OPTIONAL(bool, ClosedGOP, closedGOP);

    /// Whether all groups of pictures have the same structure.
    VEXA_OPTIONAL(bool, IdenticalGOP, identicalGOP);

    /// Longest distance of intra pictures, in pictures; 0 is no limit.
    VEXA_OPTIONAL(std::uint16_t, MaxGOP, maxGOP);

    /// Most B pictures between two other pictures.
    VEXA_OPTIONAL(std::uint16_t, BPictureCount, bPictureCount);

    /// Bits per second.
    VEXA_OPTIONAL(std::uint32_t, MaximumBitRate, maximumBitRate);

    /// Bits per second.
    VEXA_OPTIONAL(std::uint32_t, AverageBitRate, averageBitRate);

    /// The stream's `profile_idc`.
    VEXA_OPTIONAL(std::uint8_t, Profile, profile);

    /// The stream's byte of `constraint_set` flags, set 0 in the high bit; 0x10, set 3, makes an
    /// intra profile of those that have one.
    VEXA_OPTIONAL(std::uint8_t, ProfileConstraint, profileConstraint);

    /// The stream's `level_idc`: ten times the level, 41 for 4.1.
    VEXA_OPTIONAL(std::uint8_t, Level, level);

    /// Access units between the decoding of a picture and its presentation.
    VEXA_REQUIRED(std::uint8_t, DecodingDelay, decodingDelay);

    /// The stream's max_num_ref_frames; 0 for intra coding.
    VEXA_OPTIONAL(std::uint8_t, MaximumRefFrames, maximumRefFrames);

    /// Bits for where the stream holds its sequence parameter sets, and for whether they stay the
    /// same.
    VEXA_OPTIONAL(std::uint8_t, SequenceParameterSetFlag, sequenceParameterSetFlag);

    /// Bits for where the stream holds its picture parameter sets, and for whether they stay the
    /// same.
    VEXA_OPTIONAL(std::uint8_t, PictureParameterSetFlag, pictureParameterSetFlag);
};

VEXA_SET_FACTORY(AVCVideoSubDescriptor, SubDescriptor);

} // namespace vexa_toolkit
