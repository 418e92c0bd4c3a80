#pragma once

#include <vexa/klv/KLVHandler.h>
#include <vexa/util/Bytes.h>

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

inline namespace vexa_toolkit {

/// Whole elements, sent into a handler. A handler that doesn't want an element or an item gets its
/// start and its end only. A buffer that it stores is ignored: it gets values through `value`. The
/// BER form that is passed to sets and packs must be the one in force.
/// What is wrong with a key is util::assertion_failure.
namespace klvutil {

using util::Bytes;
using LocalItem = std::pair<std::uint32_t, Bytes>;

void writeIndividualItem(KLVHandler& handler, const KLVKey& key, const std::uint8_t* data,
                         std::size_t size);

void writeFixedLengthPack(KLVHandler& handler, const KLVKey& key, const Bytes& bytes);

/// The widths of tags and lengths are those of the key's byte 5.
void writeLocalSet(KLVHandler& handler, const KLVKey& key, const std::vector<LocalItem>& items,
                   std::uint8_t form);

/// The width of the lengths is that of the key's byte 5.
void writeVariableLengthPack(KLVHandler& handler, const KLVKey& key,
                             const std::vector<Bytes>& items, std::uint8_t form);

/// Tells the form, then writes a fill item with that many zero bytes.
void writeFillItem(KLVHandler& handler, std::uint64_t valueLength, std::uint8_t form);

/// Bytes of a fill item without a value.
std::uint64_t fillItemOverhead(std::uint8_t form);

} // namespace klvutil

} // namespace vexa_toolkit
