#pragma once

#include <cstdint>
#include <string>

/// What a big file is made of: that many essence elements of that many value bytes.
struct BigFileLayout {
    std::uint64_t elements;
    std::uint64_t valueSize;
    /// Nothing is written where values lie: the file has its length, but takes up little space.
    bool sparse = false;

    std::uint64_t valueBytes() const { return elements * valueSize; }
};

/// The path of a file of one partition with such a body, and a random index: in a temporary
/// directory of this process, built at the first call for its layout, and removed when the process
/// exits.
const std::string& bigFile(const BigFileLayout& layout);

/// An MPEG-2 file such as a camera writes at 50 Mbit/s and 25 Hz: in each edit unit a system item,
/// a picture and eight sound elements, each with fill up to the next 512 bytes.
namespace camerafile {

constexpr std::uint64_t editUnitsPerGroup = 12;
constexpr std::size_t soundsPerEditUnit = 8;
/// Of 24-bit samples at 48 kHz.
constexpr std::size_t soundSize = 5760;
constexpr std::size_t largestPicture = 550000;

/// The bytes of a picture; 250,000 on average in a group.
constexpr std::size_t pictureSize(std::uint64_t editUnit) {
    const std::uint64_t place = editUnit % editUnitsPerGroup;
    return place == 0 ? largestPicture : place % 3 == 0 ? 300000 : 193750;
}

constexpr std::uint64_t essenceBytesPerGroup = [] {
    std::uint64_t bytes = editUnitsPerGroup * soundsPerEditUnit * soundSize;
    for (std::uint64_t editUnit = 0; editUnit < editUnitsPerGroup; ++editUnit) {
        bytes += pictureSize(editUnit);
    }
    return bytes;
}();

/// The path of such a file, built at the first call. Header metadata, index table segments and
/// random index are those of a small real file: what is said in them doesn't fit.
const std::string& path(std::uint64_t groups);

} // namespace camerafile

/// A path in that directory.
std::string scratchFile(const std::string& name);
