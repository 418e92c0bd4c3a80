#include "mxf/MXFPartitionFilter.h"

#include "klv/streams.h"
#include "util/check.h"

#include <vexa/klv/Locator.h>
#include <vexa/mxf/MXFPartitionKey.h>

inline namespace vexa_toolkit {

MXFPartitionFilter::MXFPartitionFilter(std::streampos stopAt, bool* stop)
    : stopAt_(stopAt), stop_(stop) {}

MXFPartitionFilter::MXFPartitionFilter(std::streampos stopAt, bool* stop, KLVHandler& next)
    : DullKLVFilter(next), stopAt_(stopAt), stop_(stop) {}

MXFPartitionFilter::~MXFPartitionFilter() = default;

void MXFPartitionFilter::testStop() {
    const std::streamoff stopAt = stopAt_;
    if (stopAt != klvutil::noPosition && stopAt <= std::streamoff(position_)) {
        *stop_ = true;
    }
}

/// Before an element: is it to be passed on?
bool MXFPartitionFilter::passesStart() {
    if (!universalSets_.isNested()) {
        testStop();
    }
    return !*stop_;
}

/// After an element: was it passed on?
bool MXFPartitionFilter::passesEnd() {
    if (*stop_) {
        return false;
    }
    if (!universalSets_.isNested()) {
        util::check(locator_ != nullptr, "has locator");
        position_ = locator_->getPosition();
    }
    return true;
}

void MXFPartitionFilter::setLocator(const Locator* locator) {
    locator_ = locator;
    DullKLVFilter::setLocator(locator);
}

void MXFPartitionFilter::startStream(bool accurateLengths) {
    util::check(locator_ != nullptr, "has locator");
    util::check(accurateLengths, "has accurate lengths");
    position_ = locator_->getPosition();
    universalSets_.reset();
    if (passesStart()) {
        started_ = true;
        stoppedAtPartition_ = false;
        DullKLVFilter::startStream(accurateLengths);
    }
}

void MXFPartitionFilter::endStream(bool aborted) {
    locator_ = nullptr;
    if (started_) {
        started_ = false;
        DullKLVFilter::endStream(aborted);
    }
}

bool MXFPartitionFilter::startIndividualItem(const KLVKey& key, std::uint64_t length,
                                             std::uint8_t** buffer) {
    return passesStart() && DullKLVFilter::startIndividualItem(key, length, buffer);
}

void MXFPartitionFilter::endIndividualItem(const KLVKey& key) {
    if (passesEnd()) {
        DullKLVFilter::endIndividualItem(key);
    }
}

bool MXFPartitionFilter::startLabel(const KLVKey& key) {
    return passesStart() && DullKLVFilter::startLabel(key);
}

void MXFPartitionFilter::endLabel(const KLVKey& key) {
    if (passesEnd()) {
        DullKLVFilter::endLabel(key);
    }
}

bool MXFPartitionFilter::startUniversalSet(const KLVKey& key, std::uint64_t length) {
    return universalSets_.start(passesStart() && DullKLVFilter::startUniversalSet(key, length));
}

void MXFPartitionFilter::endUniversalSet(const KLVKey& key) {
    universalSets_.end();
    if (passesEnd()) {
        DullKLVFilter::endUniversalSet(key);
    }
}

bool MXFPartitionFilter::startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                                       LengthType lengthType) {
    return passesStart() && DullKLVFilter::startLocalSet(key, length, tagType, lengthType);
}

void MXFPartitionFilter::endLocalSet(const KLVKey& key) {
    if (passesEnd()) {
        DullKLVFilter::endLocalSet(key);
    }
}

bool MXFPartitionFilter::startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                                              std::uint8_t** buffer) {
    const bool passes = passesStart();
    if (!universalSets_.isNested() && MXFPartitionKey::isPartitionKey(key)) {
        *stop_ = true;
        stoppedAtPartition_ = true;
        return false;
    }
    return passes && DullKLVFilter::startFixedLengthPack(key, length, buffer);
}

void MXFPartitionFilter::endFixedLengthPack(const KLVKey& key) {
    if (passesEnd()) {
        DullKLVFilter::endFixedLengthPack(key);
    }
}

bool MXFPartitionFilter::startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                                 LengthType lengthType) {
    return passesStart() && DullKLVFilter::startVariableLengthPack(key, length, lengthType);
}

void MXFPartitionFilter::endVariableLengthPack(const KLVKey& key) {
    if (passesEnd()) {
        DullKLVFilter::endVariableLengthPack(key);
    }
}

bool MXFPartitionFilter::startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                                      std::uint8_t** buffer) {
    return passesStart() && DullKLVFilter::startWrapper(key, length, simple, buffer);
}

void MXFPartitionFilter::endWrapper(const KLVKey& key) {
    if (passesEnd()) {
        DullKLVFilter::endWrapper(key);
    }
}

} // namespace vexa_toolkit
