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

/// A path in that directory.
std::string scratchFile(const std::string& name);
