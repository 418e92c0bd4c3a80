#include "rewrap/Relay.h"

namespace {

/// Key and length of a fill item or pack as the writer codes it.
constexpr std::uint64_t headSize = KLVKey::size + 4;

std::uint64_t packSize(const MXFPartitionPack& pack) {
    return headSize + 88 + KLVKey::size * pack.essenceContainers.size();
}

/// Whether so many bytes can be padded to `room` by no fill item or one.
bool fits(std::uint64_t bytes, std::uint64_t room, std::uint32_t kagSize) {
    return (room == bytes || room >= bytes + headSize) && (kagSize == 0 || room % kagSize == 0);
}

/// The byte count of a section: the old one where that will do.
std::uint64_t sectionSize(std::uint64_t bytes, std::uint64_t old, std::uint32_t kagSize) {
    return bytes != 0 && fits(bytes, old, kagSize) ? old : getVEXASectionByteCount(bytes, kagSize);
}

} // namespace

Relay::Relay(VEXAWriter& writer, EssenceRelay& essence, const Layout* known)
    : writer_(writer), essence_(essence), known_(known) {
    essence_.setBegin([this] { begin(); });
}

void Relay::startStructure() {
    writer_.getStructureHandler()->startStructure();
}

void Relay::endStructure(bool aborted) {
    writer_.getStructureHandler()->endStructure(aborted);
}

void Relay::startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                           std::uint64_t packByteCount) {
    key_ = key;
    pack_ = pack;
    packByteCount_ = packByteCount;
    roots_.clear();
    documents_.clear();
    segments_.clear();
    isHeld_ = true;
}

void Relay::endPartition(const KLVKey& key) {
    begin();
    writer_.getStructureHandler()->endPartition(key);
}

void Relay::randomIndex(const MXFRandomIndex& table) {
    writer_.getStructureHandler()->randomIndex(table);
}

void Relay::model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) {
    roots_ = roots;
}

void Relay::xmlMetadata(const char* data, std::size_t size) {
    documents_.emplace_back(data != nullptr ? data : "", size);
}

void Relay::indexTableSegment(const MXFIndexTableSegment& segment) {
    const auto shift = known_ == nullptr ? std::map<std::uint32_t, EssenceShift>::const_iterator()
                                         : known_->essence.find(segment.bodySID);
    const bool moves = known_ != nullptr && shift != known_->essence.end();
    segments_.push_back(moves ? shift->second.apply(segment) : segment);
}

void Relay::tellMetadata(VEXAMetadataHandler& handler) const {
    handler.startMetadata();
    handler.model(roots_);
    for (const std::string& document : documents_) {
        handler.xmlMetadata(document.data(), document.size());
    }
    handler.endMetadata();
}

void Relay::tellIndex(MXFIndexHandler& handler) const {
    handler.startIndexTable();
    for (const MXFIndexTableSegment& segment : segments_) {
        handler.indexTableSegment(segment);
    }
    handler.endIndexTable();
}

void Relay::begin() {
    if (!isHeld_) {
        return;
    }
    isHeld_ = false;
    const std::uint32_t kagSize = pack_.kagSize;
    const std::uint64_t bodyStart = runIn_ + pack_.thisPartition + packByteCount_ +
                                    pack_.headerByteCount + pack_.indexByteCount;
    essence_.setPartition(pack_, bodyStart);
    writer_.setIndexAlignment(kagSize);

    MXFPartitionPack pack = pack_;
    const std::uint64_t metadata =
        roots_.empty() ? 0 : writer_.getMetadataByteCount(kagSize, [this](auto& handler) {
            tellMetadata(handler);
        });
    const std::uint64_t index =
        segments_.empty() ? 0 : writer_.getIndexByteCount([this](auto& to) { tellIndex(to); });
    pack.headerByteCount = sectionSize(metadata, pack_.headerByteCount, kagSize);
    pack.indexByteCount = sectionSize(index, pack_.indexByteCount, kagSize);
    const bool knowsFooter = known_ != nullptr && !MXFPartitionKey::isFooter(key_);
    pack.footerPartition = knowsFooter && pack_.footerPartition != 0 ? known_->footer : 0;
    pack.bodyOffset = pack_.bodySID == 0 ? 0 : essence_.bytes(pack_.bodySID);
    const bool keepsFill = fits(packSize(pack), packByteCount_, kagSize);
    writer_.getStructureHandler()->startPartition(key_, pack, keepsFill ? packByteCount_ : 0);
    if (metadata != 0) {
        tellMetadata(*writer_.getMetadataHandler());
    }
    if (index != 0) {
        tellIndex(*writer_.getIndexHandler());
    }
}
