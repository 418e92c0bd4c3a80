#include "gc/system/proxySystemItem.h"

#include "klv/batch.h"
#include "metadata/codec.h"

namespace gcsystem {

std::uint32_t decodeFrameCount(const klvutil::Bytes& value) {
    return metadata::decodeValue<std::uint32_t>(value);
}

void decodeTimecodes(const klvutil::Bytes& value, std::vector<MXFTimecode>& timecodes) {
    util::byte_reader in(value);
    klvutil::readBatch(in, MXFTimecode::size, timecodes, [](util::byte_reader& item) {
        MXFTimecode timecode;
        klvutil::readBytes(item, timecode.bytes);
        return timecode;
    });
    klvutil::requireEnd(in);
}

std::vector<klvutil::LocalItem> encodeProxySystemItem(std::uint32_t frameCount,
                                                      const std::vector<MXFTimecode>& timecodes) {
    std::vector<klvutil::LocalItem> items;
    if (frameCount != 0) {
        items.emplace_back(frameCountTag, metadata::encodeValue(frameCount));
    }
    klvutil::Bytes batch;
    klvutil::appendBatch(batch, timecodes, MXFTimecode::size,
                         [](klvutil::Bytes& out, const MXFTimecode& timecode) {
                             metadata::encode(out, timecode.bytes);
                         });
    items.emplace_back(timecodesTag, std::move(batch));
    return items;
}

} // namespace gcsystem
