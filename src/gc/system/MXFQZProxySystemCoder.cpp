#include "gc/system/MXFQZProxySystemCoder.h"

#include "gc/system/proxySystemItem.h"

inline namespace vexa_toolkit {

MXFQZProxySystemCoder::MXFQZProxySystemCoder(MXFGCSystemHandler& next) : next_(next) {}

MXFQZProxySystemCoder::~MXFQZProxySystemCoder() = default;

void MXFQZProxySystemCoder::proxySystemItem(std::uint32_t frameCount,
                                            const std::vector<MXFTimecode>& timecodes) {
    next_.systemLocalSet(gcsystem::proxySystemKey,
                         gcsystem::encodeProxySystemItem(frameCount, timecodes));
}

} // namespace vexa_toolkit
