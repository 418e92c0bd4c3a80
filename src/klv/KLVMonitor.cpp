#include "klv/KLVMonitor.h"

#include "klv/berLength.h"
#include "klv/smpte.h"
#include "util/check.h"

inline namespace vexa_toolkit {

KLVMonitor::MonitoredLocator::~MonitoredLocator() = default;

void KLVMonitor::MonitoredLocator::reset() {
    position_ = std::streampos(std::streamoff(0));
}

void KLVMonitor::MonitoredLocator::add(std::uint64_t size) {
    // Unsigned: lengths that a stream announces may add up to anything.
    const auto position = static_cast<std::uint64_t>(std::streamoff(position_));
    position_ = static_cast<std::streamoff>(position + size);
}

KLVMonitor::~KLVMonitor() = default;

KLVMonitor::MonitoredLocator& KLVMonitor::getLocator() {
    return locator_;
}

void KLVMonitor::resetPosition() {
    locator_.reset();
}

void KLVMonitor::setItemHead(std::uint8_t tagSize, LengthType lengthType) {
    tagSize_ = tagSize;
    itemLengthIsBER_ = lengthType == klvutil::berLengths;
    itemLengthSize_ = itemLengthIsBER_ ? lengthSize_ : klvutil::innerLengthSize(lengthType, 0);
}

/// After a start event: a value that isn't wanted won't come as events.
bool KLVMonitor::expect(std::uint64_t length, bool wanted) {
    pending_ = wanted ? 0 : length;
    return wanted;
}

/// At an end event: counts what didn't come as events.
void KLVMonitor::settle() {
    locator_.add(pending_);
    pending_ = 0;
}

void KLVMonitor::setLocator(const Locator*) {}

void KLVMonitor::startStream(bool accurateLengths) {
    util::check(accurateLengths, "accurate monitoring is possible");
    DullKLVFilter::setLocator(&locator_);
    DullKLVFilter::startStream(accurateLengths);
    pending_ = 0;
}

void KLVMonitor::endStream(bool aborted) {
    settle();
    DullKLVFilter::endStream(aborted);
}

void KLVMonitor::berLengthForm(std::uint8_t form) {
    lengthSize_ = static_cast<std::uint8_t>(1 + klvutil::subsequentOctets(form));
    if (itemLengthIsBER_) {
        itemLengthSize_ = lengthSize_;
    }
    DullKLVFilter::berLengthForm(form);
}

bool KLVMonitor::startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                               LengthType lengthType) {
    setItemHead(klvutil::tagSize(tagType), lengthType);
    return KLVForwarding::startLocalSet(key, length, tagType, lengthType);
}

bool KLVMonitor::startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                         LengthType lengthType) {
    setItemHead(0, lengthType);
    return KLVForwarding::startVariableLengthPack(key, length, lengthType);
}

void KLVMonitor::value(const std::uint8_t* data, std::uint64_t size) {
    locator_.add(size);
    DullKLVFilter::value(data, size);
}

} // namespace vexa_toolkit
