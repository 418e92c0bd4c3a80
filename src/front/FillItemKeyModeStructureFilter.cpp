#include "front/FillItemKeyModeStructureFilter.h"

#include "klv/fillItem.h"
#include "metadata/model/labels.h"

#include <vexa/mxf/MXFPartitionKey.h>

#include <algorithm>

inline namespace vexa_toolkit {

namespace {

constexpr std::uint8_t fillKeyVersion = 2;

/// Versions are compared as one number, as a Preface has them.
constexpr std::uint16_t firstVersion = 0x0103;

bool hasVersionedFill(const MXFPartitionPack& pack) {
    const auto version =
        static_cast<std::uint16_t>(pack.majorVersion << 8 | (pack.minorVersion & 0xFF));
    const auto& containers = pack.essenceContainers;
    return version >= firstVersion ||
           (pack.bodySID != 0 &&
            std::find(containers.begin(), containers.end(), metadata::labels::mpeg2FrameWrapped) !=
                containers.end());
}

} // namespace

FillItemKeyModeStructureFilter::FillItemKeyModeStructureFilter(MXFStructureHandler& next,
                                                               std::ios_base& stream)
    : DullMXFStructureFilter(next), stream_(&stream) {}

FillItemKeyModeStructureFilter::~FillItemKeyModeStructureFilter() = default;

void FillItemKeyModeStructureFilter::startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                                                    std::uint64_t packByteCount) {
    if (klvutil::fillKeyVersion(*stream_) == 0 && MXFPartitionKey::isHeader(key) &&
        hasVersionedFill(pack)) {
        klvutil::setFillKeyVersion(*stream_, fillKeyVersion);
    }
    DullMXFStructureFilter::startPartition(key, pack, packByteCount);
}

} // namespace vexa_toolkit
