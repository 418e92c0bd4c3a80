#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Turns an AES3 element of eight channels (SMPTE 331M) into PCM, little-endian and interleaved:
/// the first `channels` of them, 1 to 8, with the highest `bytesPerSample` bytes, 1 to 3, of each
/// sample. A channel that the element calls invalid is silent. What the element lacks of its sample
/// count is left out.
void appendPCM(const std::uint8_t* element, std::size_t size, unsigned channels,
               unsigned bytesPerSample, std::vector<std::uint8_t>& pcm);
