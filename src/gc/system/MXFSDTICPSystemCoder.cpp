#include "gc/system/MXFSDTICPSystemCoder.h"

#include "gc/system/systemItem.h"

inline namespace vexa_toolkit {

using gcsystem::SystemSet;

namespace {

void codeSet(MXFGCSystemHandler& next, SystemSet kind, const MXFSDTICPSystemHandler::Items& items) {
    const KLVKey key = gcsystem::keyOf(kind, items.size());
    if (next.wantsSystem(key)) {
        next.systemLocalSet(key, items);
    }
}

} // namespace

MXFSDTICPSystemCoder::MXFSDTICPSystemCoder(MXFGCSystemHandler& next) : next_(next) {}

MXFSDTICPSystemCoder::~MXFSDTICPSystemCoder() = default;

void MXFSDTICPSystemCoder::systemMetadataPack(const MXFSDTICPSystemMetadata& pack) {
    if (next_.wantsSystem(gcsystem::systemMetadataKey)) {
        next_.systemFixedLengthPack(gcsystem::systemMetadataKey,
                                    gcsystem::encodeSystemMetadata(pack));
    }
}

void MXFSDTICPSystemCoder::packageMetadata(const Items& items) {
    codeSet(next_, SystemSet::Package, items);
}

void MXFSDTICPSystemCoder::pictureMetadata(const Items& items) {
    codeSet(next_, SystemSet::Picture, items);
}

void MXFSDTICPSystemCoder::soundMetadata(const Items& items) {
    codeSet(next_, SystemSet::Sound, items);
}

void MXFSDTICPSystemCoder::dataMetadata(const Items& items) {
    codeSet(next_, SystemSet::Data, items);
}

void MXFSDTICPSystemCoder::controlData(std::uint32_t tag, const util::Bytes& value) {
    codeSet(next_, SystemSet::Control, {{tag, value}});
}

} // namespace vexa_toolkit
