#include "mxf/partitionPack.h"

#include "klv/batch.h"

inline namespace vexa_toolkit {

namespace mxf {

namespace {

/// Visits the fields in the order of the wire.
template <class Pack, class Visit> void visitFields(Pack& pack, Visit visit) {
    visit(pack.majorVersion);
    visit(pack.minorVersion);
    visit(pack.kagSize);
    visit(pack.thisPartition);
    visit(pack.previousPartition);
    visit(pack.footerPartition);
    visit(pack.headerByteCount);
    visit(pack.indexByteCount);
    visit(pack.indexSID);
    visit(pack.bodyOffset);
    visit(pack.bodySID);
    visit(pack.operationalPattern);
    visit(pack.essenceContainers);
}

} // namespace

MXFPartitionPack decodePartitionPack(const util::Bytes& value) {
    util::byte_reader in(value);
    MXFPartitionPack pack;
    visitFields(pack, [&in](auto& field) { klvutil::decode(in, field); });
    klvutil::requireEnd(in);
    return pack;
}

util::Bytes encodePartitionPack(const MXFPartitionPack& pack) {
    util::Bytes value;
    visitFields(pack, [&value](const auto& field) { klvutil::encode(value, field); });
    return value;
}

} // namespace mxf

} // namespace vexa_toolkit
