#pragma once

#include "util/check.h"

#include <vexa/util/Bytes.h>

#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

namespace util {

/// Reads bytes in memory from front to back, for values that are already delimited. The bytes must
/// outlive it.
class byte_reader {
public:
    byte_reader(const std::uint8_t* data, std::size_t size) : next_(data), remaining_(size) {}
    explicit byte_reader(const Bytes& bytes) : byte_reader(bytes.data(), bytes.size()) {}

    std::size_t remaining() const { return remaining_; }

    /// The next `count` bytes, with the check `condition` that there are so many.
    const std::uint8_t* take(std::size_t count, const char* condition) {
        check(count <= remaining_, condition);
        const std::uint8_t* const taken = next_;
        next_ += count;
        remaining_ -= count;
        return taken;
    }

private:
    const std::uint8_t* next_;
    std::size_t remaining_;
};

} // namespace util

} // namespace vexa_toolkit
