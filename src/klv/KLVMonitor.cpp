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

/// Octets of an element's key and length.
std::uint64_t KLVMonitor::headSize() const {
    return KLVKey::size + lengthSize_;
}

void KLVMonitor::setItemLength(LengthType lengthType) {
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

bool KLVMonitor::startIndividualItem(const KLVKey& key, std::uint64_t length,
                                     std::uint8_t** buffer) {
    locator_.add(headSize());
    return expect(length, DullKLVFilter::startIndividualItem(key, length, buffer));
}

void KLVMonitor::endIndividualItem(const KLVKey& key) {
    settle();
    DullKLVFilter::endIndividualItem(key);
}

bool KLVMonitor::startLabel(const KLVKey& key) {
    locator_.add(KLVKey::size);
    return DullKLVFilter::startLabel(key);
}

bool KLVMonitor::startUniversalSet(const KLVKey& key, std::uint64_t length) {
    locator_.add(headSize());
    return expect(length, DullKLVFilter::startUniversalSet(key, length));
}

void KLVMonitor::endUniversalSet(const KLVKey& key) {
    settle();
    DullKLVFilter::endUniversalSet(key);
}

bool KLVMonitor::startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                               LengthType lengthType) {
    locator_.add(headSize());
    tagSize_ = klvutil::tagSize(tagType);
    setItemLength(lengthType);
    return expect(length, DullKLVFilter::startLocalSet(key, length, tagType, lengthType));
}

void KLVMonitor::endLocalSet(const KLVKey& key) {
    itemLengthIsBER_ = false;
    settle();
    DullKLVFilter::endLocalSet(key);
}

bool KLVMonitor::startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** buffer) {
    locator_.add(std::uint64_t{tagSize_} + itemLengthSize_);
    return expect(length, DullKLVFilter::startLocalItem(tag, length, buffer));
}

void KLVMonitor::endLocalItem(std::uint32_t tag) {
    settle();
    DullKLVFilter::endLocalItem(tag);
}

bool KLVMonitor::startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                                      std::uint8_t** buffer) {
    locator_.add(headSize());
    return expect(length, DullKLVFilter::startFixedLengthPack(key, length, buffer));
}

void KLVMonitor::endFixedLengthPack(const KLVKey& key) {
    settle();
    DullKLVFilter::endFixedLengthPack(key);
}

bool KLVMonitor::startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                         LengthType lengthType) {
    locator_.add(headSize());
    setItemLength(lengthType);
    return expect(length, DullKLVFilter::startVariableLengthPack(key, length, lengthType));
}

void KLVMonitor::endVariableLengthPack(const KLVKey& key) {
    itemLengthIsBER_ = false;
    settle();
    DullKLVFilter::endVariableLengthPack(key);
}

bool KLVMonitor::startVariableLengthItem(std::uint64_t length, std::uint8_t** buffer) {
    locator_.add(itemLengthSize_);
    return expect(length, DullKLVFilter::startVariableLengthItem(length, buffer));
}

void KLVMonitor::endVariableLengthItem() {
    settle();
    DullKLVFilter::endVariableLengthItem();
}

bool KLVMonitor::startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                              std::uint8_t** buffer) {
    locator_.add(headSize());
    return expect(length, DullKLVFilter::startWrapper(key, length, simple, buffer));
}

void KLVMonitor::endWrapper(const KLVKey& key) {
    settle();
    DullKLVFilter::endWrapper(key);
}

void KLVMonitor::value(const std::uint8_t* data, std::uint64_t size) {
    locator_.add(size);
    DullKLVFilter::value(data, size);
}

} // namespace vexa_toolkit
