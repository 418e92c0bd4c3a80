#include "mxf/MXFPartitionFilter.h"

#include "klv/streams.h"
#include "util/check.h"

#include <vexa/klv/Locator.h>
#include <vexa/mxf/MXFPartitionKey.h>

inline namespace vexa_toolkit {

MXFPartitionFilter::MXFPartitionFilter(std::streampos stopAt, bool* stop)
    : stopAt_(stopAt), stop_(stop) {}

MXFPartitionFilter::MXFPartitionFilter(std::streampos stopAt, bool* stop, KLVHandler& next)
    : KLVForwarding(next), stopAt_(stopAt), stop_(stop) {}

MXFPartitionFilter::~MXFPartitionFilter() = default;

void MXFPartitionFilter::testStop() {
    const std::streamoff stopAt = stopAt_;
    if (stopAt != klvutil::noPosition && stopAt <= std::streamoff(position_)) {
        *stop_ = true;
    }
}

/// Before an element: is it to be passed on?
bool MXFPartitionFilter::passesStart(const KLVStart& start) {
    if (universalSets_.isNested()) {
        return !*stop_;
    }
    testStop();
    if (start.coding == Coding::FixedLengthPack && MXFPartitionKey::isPartitionKey(start.key)) {
        *stop_ = true;
        stoppedAtPartition_ = true;
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
    testStop();
    if (!*stop_) {
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

} // namespace vexa_toolkit
