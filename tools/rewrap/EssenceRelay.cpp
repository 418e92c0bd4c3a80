#include "rewrap/EssenceRelay.h"

#include <utility>

namespace {

/// Of key and length, where the length takes 4 octets, as it mostly does.
constexpr std::uint64_t usualHead = KLVKey::size + 4;
constexpr std::uint64_t longestHead = KLVKey::size + 9;

} // namespace

EssenceRelay::EssenceRelay(VEXAWriter& writer, std::function<std::int64_t()> position, bool writes)
    : MXFGCElementAligner(*writer.getGCStructureHandler(), *writer.getEssenceHandler()),
      written_(writer.getEssenceMonitor(0)), position_(std::move(position)), writes_(writes) {}

void EssenceRelay::setPartition(const MXFPartitionPack& pack, std::uint64_t bodyStart) {
    pack_ = pack;
    bodyStart_ = bodyStart;
    systemHead_.reset();
    setKAGSize(pack.kagSize);
}

EssenceRelay::Place EssenceRelay::here() const {
    const auto written = static_cast<std::uint64_t>(std::streamoff(written_->getPosition()));
    return {position_(), bytes_.at(pack_.bodySID) + written - streamStart_};
}

std::uint64_t EssenceRelay::oldOffset(std::int64_t position, std::uint64_t headSize) const {
    return pack_.bodyOffset + static_cast<std::uint64_t>(position) - headSize - bodyStart_;
}

void EssenceRelay::startStream(std::uint64_t kagSize) {
    begin_();
    bytes_[pack_.bodySID]; // from 0
    streamStart_ = static_cast<std::uint64_t>(std::streamoff(written_->getPosition()));
    MXFGCElementAligner::startStream(kagSize);
}

void EssenceRelay::endStream() {
    MXFGCElementAligner::endStream();
    bytes_[pack_.bodySID] = here().offset;
}

void EssenceRelay::startEditUnit() {
    editUnit_ = here();
    MXFGCElementAligner::startEditUnit();
}

void EssenceRelay::endEditUnit() {
    noteSystemItem();
    MXFGCElementAligner::endEditUnit();
}

/// A reader stands behind key and length of the first element when it tells an edit unit. The first
/// one of a body shows how long those are, unless there is fill before it.
void EssenceRelay::noteSystemItem() {
    if (!editUnit_) {
        return;
    }
    if (!systemHead_) {
        const std::uint64_t head = static_cast<std::uint64_t>(editUnit_->position) - bodyStart_;
        systemHead_ = head > KLVKey::size && head <= longestHead ? head : usualHead;
    }
    shifts_[pack_.bodySID].add(oldOffset(editUnit_->position, *systemHead_), editUnit_->offset);
    editUnit_.reset();
}

bool EssenceRelay::wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) {
    if (editUnit_ && editUnit_->position == position_()) {
        editUnit_.reset(); // it begins with this element
    }
    noteSystemItem();
    const bool wanted = MXFGCElementAligner::wantsEssence(key, length, buffer);
    const Place place = here();
    shifts_[pack_.bodySID].add(oldOffset(place.position, elementHead_), place.offset);
    if (!writes_) {
        const std::uint8_t unread = 0;        // the writer's output refuses all values
        pictureElement(key, &unread, length); // all kinds are laid out alike
        return false;
    }
    return wanted;
}

void EssenceRelay::essenceLengthForm(std::uint8_t form) {
    elementHead_ = KLVKey::size + 1 + (form < 0x80 ? 0 : form & 0x7FU);
    MXFGCElementAligner::essenceLengthForm(form);
}
