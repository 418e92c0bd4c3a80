#pragma once

#include "util/check.h"

#include <cstddef>
#include <cstdint>
#include <istream>
#include <type_traits>
#include <vector>
#include <vexa/klv/KLVKey.h>

/// Big-endian integers and keys, for decoding values that are already delimited and for coding
/// them. A value that runs dry is an assertion failure, which the caller turns into a report.
namespace klvutil {

/// Throws util::assertion_failure "successful get()".
template <class UInt> UInt readInteger(std::istream& in) {
    static_assert(std::is_unsigned_v<UInt>);
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof(UInt); ++i) {
        value = value << 8 | static_cast<std::uint8_t>(in.get());
    }
    util::check(in.good(), "successful get()");
    return static_cast<UInt>(value);
}

template <class UInt> void appendInteger(std::vector<std::uint8_t>& out, UInt value) {
    static_assert(std::is_unsigned_v<UInt>);
    for (std::size_t i = sizeof(UInt); i-- > 0;) {
        out.push_back(static_cast<std::uint8_t>(std::uint64_t{value} >> (8 * i)));
    }
}

/// Throws util::assertion_failure "successful read()".
inline KLVKey readKey(std::istream& in) {
    KLVKey key;
    in.read(reinterpret_cast<char*>(key.bytes.data()), KLVKey::size);
    util::check(in.good(), "successful read()");
    return key;
}

inline void appendKey(std::vector<std::uint8_t>& out, const KLVKey& key) {
    out.insert(out.end(), key.bytes.begin(), key.bytes.end());
}

} // namespace klvutil
