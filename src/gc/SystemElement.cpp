#include "gc/SystemElement.h"

#include "klv/gathering.h"
#include "util/check.h"

#include <cstddef>
#include <utility>

inline namespace vexa_toolkit {

namespace {

/// As many as there are tags of two octets. An item may be a byte of the stream, and costs more.
constexpr std::size_t mostItems = 65536;

// What is kept for the next element.
constexpr std::size_t mostSpareValues = 64;
constexpr std::size_t largestSpareValue = klvutil::firstReserve;

} // namespace

void SystemElement::recycle(Bytes& value) {
    if (spareValues_.size() < mostSpareValues && value.capacity() <= largestSpareValue) {
        spareValues_.push_back(std::move(value));
    }
}

SystemElement::Bytes SystemElement::spareValue() {
    if (spareValues_.empty()) {
        return {};
    }
    Bytes value = std::move(spareValues_.back());
    spareValues_.pop_back();
    return value;
}

/// Items give their storage back last one first, so that each of them finds its own the next time.
void SystemElement::start(std::uint64_t length) {
    for (auto item = localItems_.rbegin(); item != localItems_.rend(); ++item) {
        recycle(item->second);
    }
    for (auto item = packItems_.rbegin(); item != packItems_.rend(); ++item) {
        recycle(*item);
    }
    localItems_.clear();
    packItems_.clear();
    packValue_.clear();
    value_ = nullptr;
    left_ = length;
}

bool SystemElement::hasRoomFor(std::uint64_t itemLength) const {
    return itemLength <= left_ && localItems_.size() + packItems_.size() < mostItems;
}

void SystemElement::startPackValue() {
    value_ = &packValue_;
    klvutil::startGathering(packValue_, left_);
}

void SystemElement::startLocalItem(std::uint32_t tag, std::uint64_t length) {
    startItem(localItems_.emplace_back(tag, spareValue()).second, length);
}

void SystemElement::startPackItem(std::uint64_t length) {
    startItem(packItems_.emplace_back(spareValue()), length);
}

void SystemElement::startItem(Bytes& value, std::uint64_t length) {
    klvutil::startGathering(value, length);
    left_ -= length;
    value_ = &value;
}

void SystemElement::append(const std::uint8_t* data, std::uint64_t size) {
    util::check(value_ != nullptr, "expected value");
    klvutil::gather(*value_, data, size);
}

} // namespace vexa_toolkit
