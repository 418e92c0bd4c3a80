#include "inspect/EssenceCounter.h"

#include <algorithm>

void EssenceCounter::startEditUnit() {
    editUnit_ = {stream().editUnits, bodySID_};
}

/// Comes after a fatal error, too.
void EssenceCounter::endEditUnit() {
    endElement();
    EssenceStream& sums = stream();
    if (reports_->hasFatalError()) {
        sums.brokenEditUnit = sums.editUnits;
        return;
    }
    ++sums.editUnits;
    sums.smallestEditUnit = std::min(sums.smallestEditUnit, editUnit_.bytes);
    sums.largestEditUnit = std::max(sums.largestEditUnit, editUnit_.bytes);
    receiver_(editUnit_);
}

bool EssenceCounter::wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t**) {
    endElement();
    element_ = {key, length, lengthForm_, reports_->position()};
    return false;
}

/// A read that breaks off may do so behind the element. Of a pipe, only what was read there tells.
bool EssenceCounter::isWhole(const EssenceStream::Element& element) const {
    if (!reports_->hasFatalError()) {
        return true;
    }
    const std::int64_t end =
        fileSize_ ? static_cast<std::int64_t>(*fileSize_) : reports_->position() - 1;
    return element.position >= 0 && element.position <= end &&
           element.length <= static_cast<std::uint64_t>(end - element.position);
}

void EssenceCounter::endElement() {
    if (!element_) {
        return;
    }
    if (isWhole(*element_)) {
        EssenceStream::Track& track = stream().tracks[element_->key];
        ++track.elements;
        track.bytes += element_->length;
        track.lengthForms.insert(element_->lengthForm);
        editUnit_.bytes += element_->length;
        ++editUnit_.elements;
    } else {
        stream().cutElement = element_;
        stream().isCutCertain = fileSize_.has_value();
    }
    element_.reset();
}

void EssenceCounter::systemMetadataPack(const MXFSDTICPSystemMetadata& pack) {
    EssenceStream& sums = stream();
    if (sums.systemItems++ == 0) {
        sums.firstUserStamp = pack.userStamp;
    } else if (pack.continuityCount != static_cast<std::uint16_t>(sums.lastContinuityCount + 1)) {
        ++sums.continuityBreaks;
    }
    sums.lastUserStamp = pack.userStamp;
    sums.lastContinuityCount = pack.continuityCount;
}
