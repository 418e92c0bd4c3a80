#pragma once

#include <vexa/util/Bytes.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

/// Values that are gathered as their bytes arrive: an announced length decides no allocation.
namespace klvutil {

/// What is set aside for a value before any of its bytes has come, at most.
constexpr std::uint64_t firstReserve = 65536;

inline void startGathering(util::Bytes& value, std::uint64_t announcedLength) {
    value.clear();
    value.reserve(static_cast<std::size_t>(std::min(announcedLength, firstReserve)));
}

inline void gather(util::Bytes& value, const std::uint8_t* data, std::uint64_t size) {
    value.insert(value.end(), data, data + size);
}

} // namespace klvutil

} // namespace vexa_toolkit
