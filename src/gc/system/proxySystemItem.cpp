#include "gc/system/proxySystemItem.h"

#include "klv/batch.h"
#include "metadata/model/codec.h"

#include <utility>

inline namespace vexa_toolkit {

namespace gcsystem {

using Bytes = MXFGCSystemHandler::Bytes;
using LocalItems = MXFGCSystemHandler::LocalItems;

std::uint32_t decodeFrameCount(const Bytes& value) {
    return metadata::decodeValue<std::uint32_t>(value);
}

void decodeTimecodes(const Bytes& value, std::vector<MXFTimecode>& timecodes) {
    util::byte_reader in(value);
    klvutil::readBatch(in, MXFTimecode::size, timecodes, [](util::byte_reader& item) {
        MXFTimecode timecode;
        klvutil::decode(item, timecode.bytes);
        return timecode;
    });
    klvutil::requireEnd(in);
}

LocalItems encodeProxySystemItem(std::uint32_t frameCount,
                                 const std::vector<MXFTimecode>& timecodes) {
    LocalItems items;
    if (frameCount != 0) {
        items.emplace_back(frameCountTag, metadata::encodeValue(frameCount));
    }
    Bytes batch;
    klvutil::appendBatch(
        batch, timecodes, MXFTimecode::size,
        [](Bytes& out, const MXFTimecode& timecode) { metadata::encode(out, timecode.bytes); });
    items.emplace_back(timecodesTag, std::move(batch));
    return items;
}

} // namespace gcsystem

} // namespace vexa_toolkit
