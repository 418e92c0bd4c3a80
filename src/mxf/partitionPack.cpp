#include "mxf/partitionPack.h"

#include "klv/batch.h"
#include "klv/bigEndian.h"

inline namespace vexa_toolkit {

namespace mxf {

using klvutil::appendInteger;
using klvutil::readInteger;

MXFPartitionPack decodePartitionPack(const std::vector<std::uint8_t>& value) {
    util::byte_reader in(value);
    MXFPartitionPack pack;
    pack.majorVersion = readInteger<std::uint16_t>(in);
    pack.minorVersion = readInteger<std::uint16_t>(in);
    pack.kagSize = readInteger<std::uint32_t>(in);
    pack.thisPartition = readInteger<std::uint64_t>(in);
    pack.previousPartition = readInteger<std::uint64_t>(in);
    pack.footerPartition = readInteger<std::uint64_t>(in);
    pack.headerByteCount = readInteger<std::uint64_t>(in);
    pack.indexByteCount = readInteger<std::uint64_t>(in);
    pack.indexSID = readInteger<std::uint32_t>(in);
    pack.bodyOffset = readInteger<std::uint64_t>(in);
    pack.bodySID = readInteger<std::uint32_t>(in);
    pack.operationalPattern = klvutil::decodeKey(in);
    pack.essenceContainers = klvutil::readBatch(in, KLVKey::size, klvutil::decodeKey);
    klvutil::requireEnd(in);
    return pack;
}

std::vector<std::uint8_t> encodePartitionPack(const MXFPartitionPack& pack) {
    std::vector<std::uint8_t> value;
    appendInteger(value, pack.majorVersion);
    appendInteger(value, pack.minorVersion);
    appendInteger(value, pack.kagSize);
    appendInteger(value, pack.thisPartition);
    appendInteger(value, pack.previousPartition);
    appendInteger(value, pack.footerPartition);
    appendInteger(value, pack.headerByteCount);
    appendInteger(value, pack.indexByteCount);
    appendInteger(value, pack.indexSID);
    appendInteger(value, pack.bodyOffset);
    appendInteger(value, pack.bodySID);
    klvutil::appendKey(value, pack.operationalPattern);
    klvutil::appendBatch(value, pack.essenceContainers, KLVKey::size, klvutil::appendKey);
    return value;
}

} // namespace mxf

} // namespace vexa_toolkit
