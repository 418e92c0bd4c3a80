#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/metadata/MXFTimestamp.h>
#include <vexa/metadata/sets/descriptors/SoundDescriptor.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// Sound that was Broadcast Wave data (SMPTE 382M, WaveAudioEssenceDescriptor). The peak envelope
/// is that of the Broadcast Wave level chunk (EBU Tech 3285, supplement 3).
class VEXA_EXPORT WaveAudioDescriptor : public SoundDescriptor {
    VEXA_CONCRETE_SET(WaveAudioDescriptor);

    /// Bytes of one sample of all channels.
    VEXA_REQUIRED(std::uint16_t, BlockAlign, blockAlign);

    /// Place of the first frame in the five-frame sequence of 48 kHz at 30000/1001, from 0.
    VEXA_OPTIONAL(std::uint8_t, SequenceOffset, sequenceOffset);

    /// `blockAlign` times the sampling rate.
    VEXA_REQUIRED(std::uint32_t, AverageBytesPerSecond, averageBytesPerSecond);

    /// Label of the scheme that says which channel is which.
    VEXA_OPTIONAL(KLVKey, ChannelAssignment, channelAssignment);

    /// Of the format of the peak envelope.
    VEXA_OPTIONAL(std::uint32_t, PeakEnvelopeVersion, peakEnvelopeVersion);

    /// 1 for peak points of 8 bits, 2 for 16 bits.
    VEXA_OPTIONAL(std::uint32_t, PeakEnvelopeFormat, peakEnvelopeFormat);

    /// 1 for the highest absolute value, 2 for the highest positive and negative one.
    VEXA_OPTIONAL(std::uint32_t, PointsPerPeakValue, pointsPerPeakValue);

    /// Samples for which there is one peak value.
    VEXA_OPTIONAL(std::uint32_t, PeakEnvelopeBlockSize, peakEnvelopeBlockSize);

    /// Number of channels with peak values.
    VEXA_OPTIONAL(std::uint32_t, PeakChannels, peakChannels);

    /// Number of peak frames, which are one peak value of each channel.
    VEXA_OPTIONAL(std::uint32_t, PeakFrames, peakFrames);

    /// Offset of the first sample with the highest absolute value of all, in samples.
    VEXA_OPTIONAL(std::int64_t, PeakOfPeaksPosition, peakOfPeaksPosition);

    /// When the peak envelope was made.
    VEXA_OPTIONAL(MXFTimestamp, PeakEnvelopeTimestamp, peakEnvelopeTimestamp);

    /// The peak points, frame by frame.
    VEXA_OPTIONAL(std::vector<std::uint8_t>, PeakEnvelopeDataStream, peakEnvelopeDataStream);
};

VEXA_SET_FACTORY(WaveAudioDescriptor, SoundDescriptor);

} // namespace vexa_toolkit
