#pragma once

#include "klv/bigEndian.h"

#include <cstdint>
#include <istream>
#include <vector>

/// Batches (SMPTE 377M): u32 count, u32 size of an element, then the elements.
namespace klvutil {

/// Calls `readElement(in)` for each element, which must use `elementSize` bytes; what an element
/// has beyond them is skipped. The count decides nothing in advance.
///
/// Throws util::assertion_failure "valid external length" where the elements are smaller than that,
/// "successful seekg()" where one can't be skipped, and what `readElement` throws.
template <class ReadElement>
void readBatch(std::istream& in, std::uint32_t elementSize, ReadElement readElement) {
    const auto count = readInteger<std::uint32_t>(in);
    const auto externalSize = readInteger<std::uint32_t>(in);
    for (std::uint32_t i = 0; i < count; ++i) {
        readElement(in);
        util::check(externalSize >= elementSize, "valid external length");
        if (externalSize > elementSize) {
            in.seekg(static_cast<std::streamoff>(externalSize - elementSize), std::ios_base::cur);
            util::check(in.good(), "successful seekg()");
        }
    }
}

/// Calls `appendElement(out, element)` for each element, each of which must add `elementSize`
/// bytes, else util::assertion_failure "valid entry externalize()".
template <class Elements, class AppendElement>
void appendBatch(std::vector<std::uint8_t>& out, const Elements& elements,
                 std::uint32_t elementSize, AppendElement appendElement) {
    appendInteger(out, static_cast<std::uint32_t>(elements.size()));
    appendInteger(out, elementSize);
    for (const auto& element : elements) {
        const std::size_t before = out.size();
        appendElement(out, element);
        util::check(out.size() - before == elementSize, "valid entry externalize()");
    }
}

} // namespace klvutil
