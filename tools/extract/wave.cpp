#include "extract/wave.h"

#include <cstddef>
#include <limits>

namespace {

template <class Number> std::string littleEndian(Number number) {
    std::string bytes;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
    }
    return bytes;
}

std::string chunk(const char* id, const std::string& value) {
    return id + littleEndian(static_cast<std::uint32_t>(value.size())) + value;
}

constexpr std::uint32_t unknownSize = 0xFFFFFFFF;

std::string formatChunk(const WaveFormat& format) {
    constexpr std::uint16_t pcm = 1;
    constexpr std::uint16_t extensible = 0xFFFE;
    const auto depth = static_cast<std::uint16_t>(8 * format.bytesPerSample);
    const bool isExtended = format.channels > 2 || format.bits != depth;
    std::string value = littleEndian(isExtended ? extensible : pcm) +
                        littleEndian(format.channels) + littleEndian(format.samplesPerSecond) +
                        littleEndian(format.samplesPerSecond * format.blockAlign()) +
                        littleEndian(format.blockAlign()) + littleEndian(depth);
    if (isExtended) {
        constexpr std::uint16_t extensionSize = 22;
        constexpr std::uint32_t noSpeakers = 0;
        // KSDATAFORMAT_SUBTYPE_PCM behind its first two bytes, which are the plain format's.
        const std::string subformat("\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71", 14);
        value += littleEndian(extensionSize) + littleEndian(format.bits) +
                 littleEndian(noSpeakers) + littleEndian(pcm) + subformat;
    }
    return chunk("fmt ", value);
}

} // namespace

std::string waveHeader(const WaveFormat& format, std::optional<std::uint64_t> dataSize) {
    const std::string formatPart = formatChunk(format);
    if (!dataSize) {
        return "RIFF" + littleEndian(unknownSize) + "WAVE" + formatPart + "data" +
               littleEndian(unknownSize);
    }
    constexpr std::size_t sizesLength = 28;
    const std::uint64_t behindRiff =
        4 + (8 + sizesLength) + formatPart.size() + 8 + *dataSize + *dataSize % 2;
    if (behindRiff < unknownSize) {
        return "RIFF" + littleEndian(static_cast<std::uint32_t>(behindRiff)) + "WAVE" +
               chunk("JUNK", std::string(sizesLength, '\0')) + formatPart + "data" +
               littleEndian(static_cast<std::uint32_t>(*dataSize));
    }
    constexpr std::uint32_t furtherSizes = 0;
    return "RF64" + littleEndian(unknownSize) + "WAVE" +
           chunk("ds64", littleEndian(behindRiff) + littleEndian(*dataSize) +
                             littleEndian(*dataSize / format.blockAlign()) +
                             littleEndian(furtherSizes)) +
           formatPart + "data" + littleEndian(unknownSize);
}
