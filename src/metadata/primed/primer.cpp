#include "metadata/primed/primer.h"

#include "klv/Fault.h"
#include "klv/batch.h"
#include "klv/bigEndian.h"

inline namespace vexa_toolkit {

namespace metadata {

using klvutil::readInteger;

namespace {

constexpr std::uint32_t itemSize = sizeof(std::uint16_t) + KLVKey::size;

MXFPrimerEntry decodeEntry(util::byte_reader& in) {
    MXFPrimerEntry entry;
    entry.tag = readInteger<std::uint16_t>(in);
    entry.key = klvutil::decodeKey(in);
    return entry;
}

void appendEntry(std::vector<std::uint8_t>& out, const MXFPrimerEntry& entry) {
    klvutil::appendInteger(out, entry.tag);
    klvutil::encode(out, entry.key);
}

} // namespace

MXFPrimer decodePrimer(const std::vector<std::uint8_t>& value) {
    util::byte_reader head(value);
    readInteger<std::uint32_t>(head); // the count
    util::check(readInteger<std::uint32_t>(head) >= itemSize, "valid external length");
    util::byte_reader in(value);
    MXFPrimer primer = klvutil::readBatch(in, itemSize, decodeEntry);
    klvutil::requireEnd(in);
    return primer;
}

std::vector<std::uint8_t> encodePrimer(const MXFPrimer& primer) {
    std::vector<std::uint8_t> value;
    value.reserve(2 * sizeof(std::uint32_t) + primer.size() * itemSize);
    klvutil::appendBatch(value, primer, itemSize, appendEntry);
    return value;
}

std::string describeTag(std::uint32_t tag) {
    constexpr char digits[] = "0123456789abcdef";
    return {digits[tag >> 12 & 0xF], digits[tag >> 8 & 0xF], '.', digits[tag >> 4 & 0xF],
            digits[tag & 0xF]};
}

std::string describe(const MXFPrimerEntry& entry) {
    return "{ " + describeTag(entry.tag) + ", " + klvutil::describe(entry.key) + " }";
}

} // namespace metadata

} // namespace vexa_toolkit
