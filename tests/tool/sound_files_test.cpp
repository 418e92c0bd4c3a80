#include "extract/aes3.h"
#include "extract/wave.h"
#include "support/Testing.h"

namespace {

constexpr WaveFormat stereo{48000, 2, 16, 2};
constexpr WaveFormat twentyBits{48000, 4, 20, 3};

std::string little(std::uint64_t number, int octets) {
    std::string bytes;
    for (; octets > 0; --octets, number >>= 8) {
        bytes += static_cast<char>(number & 0xFF);
    }
    return bytes;
}

std::string plainFormat() {
    return "fmt " + little(16, 4) + little(1, 2) + little(2, 2) + little(48000, 4) +
           little(192000, 4) + little(4, 2) + little(16, 2);
}

std::string extensibleFormat() {
    return "fmt " + little(40, 4) + little(0xFFFE, 2) + little(4, 2) + little(48000, 4) +
           little(576000, 4) + little(12, 2) + little(24, 2) + little(22, 2) + little(20, 2) +
           little(0, 4) + little(1, 4) +
           KLVBytes{0, 0, 16, 0, 128, 0, 0, 170, 0, 56, 155, 113}.text();
}

} // namespace

TEST(Wave, HeaderBySizeAndFormat) {
    constexpr std::uint64_t lastOfRIFF = 0xFFFFFFFE - (4 + 36 + 24 + 8);
    constexpr std::uint64_t large = 5'000'000'000;
    const std::string room = "JUNK" + little(28, 4) + std::string(28, '\0');
    EXPECT_EQ(waveHeader(stereo, 6),
              "RIFF" + little(78, 4) + "WAVE" + room + plainFormat() + "data" + little(6, 4));
    EXPECT_EQ(waveHeader(twentyBits, 7), "RIFF" + little(4 + 36 + 48 + 8 + 8, 4) + "WAVE" + room +
                                             extensibleFormat() + "data" + little(7, 4));
    EXPECT_EQ(waveHeader(stereo, lastOfRIFF).substr(0, 8), "RIFF" + little(0xFFFFFFFE, 4));
    EXPECT_EQ(waveHeader(stereo, lastOfRIFF + 1).substr(0, 8), "RF64" + little(0xFFFFFFFF, 4));
    EXPECT_EQ(waveHeader(stereo, large),
              "RF64" + little(0xFFFFFFFF, 4) + "WAVEds64" + little(28, 4) + little(large + 72, 8) +
                  little(large, 8) + little(large / 4, 8) + little(0, 4) + plainFormat() + "data" +
                  little(0xFFFFFFFF, 4));
    EXPECT_EQ(waveHeader(stereo, std::nullopt), "RIFF" + little(0xFFFFFFFF, 4) + "WAVE" +
                                                    plainFormat() + "data" + little(0xFFFFFFFF, 4));
}

TEST(AES3, SamplesByChannelsValidityAndDepth) {
    KLVBytes element{0, 3, 0, 0b101}; // announces three samples, has two and some
    for (int i = 0; i < 2 * 8; ++i) {
        element.raw({0x10 | i % 8, 0x32, 0x54, 0x86 + i}); // sample 0x?86?54321 >> 4
    }
    element.counting(5);
    const auto pcm = [&](std::size_t size, unsigned channels, unsigned bytes) {
        std::vector<std::uint8_t> samples;
        appendPCM(element.bytes().data(), size, channels, bytes, samples);
        return samples;
    };
    EXPECT_EQ(pcm(element.size(), 1, 3), (Bytes{0x21, 0x43, 0x65, 0x21, 0x43, 0xE5}));
    EXPECT_EQ(pcm(element.size(), 3, 2),
              (Bytes{0x43, 0x65, 0, 0, 0x43, 0x85, 0x43, 0xE5, 0, 0, 0x43, 0x05}));
    EXPECT_EQ(pcm(4 + 31, 8, 3), Bytes());
    EXPECT_EQ(pcm(3, 8, 3), Bytes());
}
