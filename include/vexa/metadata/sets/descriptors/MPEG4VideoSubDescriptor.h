#pragma once

#include <vexa/metadata/sets/descriptors/SubDescriptor.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Coding parameters of MPEG-4 visual (ISO/IEC 14496-2).
class VEXA_EXPORT MPEG4VideoSubDescriptor : public SubDescriptor {
    VEXA_CONCRETE_SET(MPEG4VideoSubDescriptor);

    /// Whether the essence is one sequence.
    VEXA_OPTIONAL(bool, SingleSequence, singleSequence);

    /// Whether the number of B-VOPs between other VOPs is always the same.
    VEXA_OPTIONAL(bool, ConstantBVOPs, constantBVOPs);

    /// Scanning of the picture that was coded: 0 unknown, 1 progressive, 2 interlaced, 3 mixed.
    VEXA_OPTIONAL(std::uint8_t, CodedContentType, codedContentType);

    /// Whether the stream is coded in low delay mode, which has no B-VOPs.
    VEXA_OPTIONAL(bool, LowDelay, lowDelay);

    /// Whether all groups of VOPs are closed.
    VEXA_OPTIONAL(bool, ClosedGOV, closedGOV);

    /// Whether all groups of VOPs have the same structure.
    VEXA_OPTIONAL(bool, IdenticalGOV, identicalGOV);

    /// Longest distance of I-VOPs, in VOPs; 0 is no limit.
    VEXA_OPTIONAL(std::uint16_t, MaxGOV, maxGOV);

    /// Most B-VOPs between two other VOPs.
    VEXA_OPTIONAL(std::uint16_t, BVOPCount, bVOPCount);

    /// Maximum, in bits per second.
    VEXA_OPTIONAL(std::uint32_t, BitRate, bitRate);

    /// The stream's `profile_and_level_indication`.
    VEXA_OPTIONAL(std::uint8_t, ProfileAndLevel, profileAndLevel);
};

VEXA_SET_FACTORY(MPEG4VideoSubDescriptor, SubDescriptor);

} // namespace vexa_toolkit
