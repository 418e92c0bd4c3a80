#include "mxf/randomIndex.h"

#include "klv/berLength.h"
#include "klv/bigEndian.h"
#include "util/byte_reader.h"
#include "util/check.h"

#include <vexa/klv/KLVKey.h>

#include <limits>

inline namespace vexa_toolkit {

namespace mxf {

namespace {

constexpr std::size_t entrySize = 12;
constexpr std::size_t overallLengthSize = 4;

std::uint64_t overallLength(std::size_t valueSize, std::uint8_t form) {
    return std::uint64_t{KLVKey::size} + klvutil::berLengthSize(form) + valueSize;
}

} // namespace

MXFRandomIndex decodeRandomIndex(const util::Bytes& value, std::uint8_t form) {
    util::check(value.size() >= overallLengthSize &&
                    (value.size() - overallLengthSize) % entrySize == 0,
                "valid external length");
    util::byte_reader in(value);
    MXFRandomIndex table((value.size() - overallLengthSize) / entrySize);
    for (MXFRandomIndexEntry& entry : table) {
        entry.bodySID = klvutil::readInteger<std::uint32_t>(in);
        entry.byteOffset = klvutil::readInteger<std::uint64_t>(in);
    }
    const auto length = klvutil::readInteger<std::uint32_t>(in);
    util::check(!klvutil::isBERForm(form) || length == overallLength(value.size(), form),
                "correct overall length");
    return table;
}

util::Bytes encodeRandomIndex(const MXFRandomIndex& table, std::uint8_t form) {
    const std::size_t valueSize = table.size() * entrySize + overallLengthSize;
    const std::uint64_t length = overallLength(valueSize, form);
    util::check(length <= std::numeric_limits<std::uint32_t>::max(), "correct overall length");
    util::Bytes value;
    value.reserve(valueSize);
    for (const MXFRandomIndexEntry& entry : table) {
        klvutil::appendInteger(value, entry.bodySID);
        klvutil::appendInteger(value, entry.byteOffset);
    }
    klvutil::appendInteger(value, static_cast<std::uint32_t>(length));
    return value;
}

} // namespace mxf

} // namespace vexa_toolkit
