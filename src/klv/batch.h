#pragma once

#include "klv/bigEndian.h"
#include "util/byte_reader.h"
#include "util/check.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>
#include <vector>

inline namespace vexa_toolkit {

/// Batches and arrays (SMPTE 377M): u32 count, u32 size of an element, then the elements.
namespace klvutil {

/// Appends to `elements` what `readElement(in)` makes of each element, which must use `elementSize`
/// bytes, not 0; what an element has beyond them is skipped. The announced count decides no
/// allocation. After a failure `elements` holds those that were read until then.
///
/// Throws util::assertion_failure "valid external length" where the elements are smaller than that,
/// "successful seekg()" where the rest of one can't be skipped, and what `readElement` throws.
template <class Element, class ReadElement>
void readBatch(util::byte_reader& in, std::uint32_t elementSize, std::vector<Element>& elements,
               ReadElement readElement) {
    const auto count = readInteger<std::uint32_t>(in);
    const auto externalSize = readInteger<std::uint32_t>(in);
    util::check(count == 0 || externalSize >= elementSize, "valid external length");
    elements.reserve(
        elements.size() +
        std::min<std::size_t>(count, in.remaining() / std::max(externalSize, elementSize)));
    for (std::uint32_t i = 0; i < count; ++i) {
        elements.push_back(readElement(in));
        in.take(externalSize - elementSize, "successful seekg()");
    }
}

/// The same, into a vector of its own.
template <class ReadElement>
auto readBatch(util::byte_reader& in, std::uint32_t elementSize, ReadElement readElement) {
    std::vector<std::invoke_result_t<ReadElement, util::byte_reader&>> elements;
    readBatch(in, elementSize, elements, readElement);
    return elements;
}

/// Calls `appendElement(out, element)` for each element, each of which must add `elementSize`
/// bytes, else util::assertion_failure "valid entry externalize()".
template <class Elements, class AppendElement>
void appendBatch(util::Bytes& out, const Elements& elements, std::uint32_t elementSize,
                 AppendElement appendElement) {
    out.reserve(out.size() + 8 + elements.size() * elementSize);
    appendInteger(out, static_cast<std::uint32_t>(elements.size()));
    appendInteger(out, elementSize);
    for (const auto& element : elements) {
        const std::size_t before = out.size();
        appendElement(out, element);
        util::check(out.size() - before == elementSize, "valid entry externalize()");
    }
}

/// A batch of keys.
inline void decode(util::byte_reader& in, std::vector<KLVKey>& keys) {
    keys = readBatch(in, KLVKey::size, decodeKey);
}
inline void encode(util::Bytes& out, const std::vector<KLVKey>& keys) {
    appendBatch(out, keys, KLVKey::size,
                [](util::Bytes& to, const KLVKey& key) { encode(to, key); });
}

/// The value was used up: the check is "valid external length".
inline void requireEnd(const util::byte_reader& in) {
    util::check(in.remaining() == 0, "valid external length");
}

} // namespace klvutil

} // namespace vexa_toolkit
