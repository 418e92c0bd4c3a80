#include "extract/aes3.h"

#include <algorithm>

// The element: a byte of flags and sequence number, the number of samples in two bytes, low byte
// first, and a byte with a bit for each valid channel, the lowest for channel 0. Then, for each
// sample, eight channels of four bytes: 4 bits of channel number and block start, 24 bits of
// sample, 4 bits of validity, user data, channel status and parity; the lowest bits first.

void appendPCM(const std::uint8_t* element, std::size_t size, unsigned channels,
               unsigned bytesPerSample, std::vector<std::uint8_t>& pcm) {
    constexpr std::size_t headerSize = 4;
    constexpr std::size_t sampleSize = 8 * 4;
    if (size < headerSize) {
        return;
    }
    const std::size_t announced = element[1] | std::size_t{element[2]} << 8;
    const std::size_t samples = std::min(announced, (size - headerSize) / sampleSize);
    const std::uint8_t* const end = element + headerSize + samples * sampleSize;
    pcm.reserve(pcm.size() + samples * channels * bytesPerSample);
    for (const std::uint8_t* sample = element + headerSize; sample != end; sample += sampleSize) {
        for (unsigned channel = 0; channel < channels; ++channel) {
            const std::uint8_t* const word = sample + 4 * channel;
            const bool isValid = (element[3] >> channel & 1) != 0;
            const std::uint32_t value =
                isValid ? (word[0] | std::uint32_t{word[1]} << 8 | std::uint32_t{word[2]} << 16 |
                           std::uint32_t{word[3]} << 24) >>
                              4
                        : 0;
            for (unsigned byte = 3 - bytesPerSample; byte < 3; ++byte) {
                pcm.push_back(static_cast<std::uint8_t>(value >> (8 * byte)));
            }
        }
    }
}
