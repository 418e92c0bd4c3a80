#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// PCM sound as a Wave file has it.
struct WaveFormat {
    std::uint32_t samplesPerSecond = 0;
    std::uint16_t channels = 0;
    /// Of a sample that are used; the highest ones.
    std::uint16_t bits = 0;
    std::uint16_t bytesPerSample = 0;

    /// Bytes of one sample of all channels.
    std::uint16_t blockAlign() const {
        return static_cast<std::uint16_t>(channels * bytesPerSample);
    }
};

/// What stands before the samples. As long for a file of any size, so that it can be written anew
/// when `dataSize`, in bytes, is known: as RIFF up to 4 GiB, as RF64 (EBU Tech 3306) beyond.
/// Without a size it is the header of a stream, whose lengths are all bits set.
std::string waveHeader(const WaveFormat& format, std::optional<std::uint64_t> dataSize);
