#include "index/MXFIndexCoder.h"

#include "index/indexSegment.h"
#include "klv/berLength.h"
#include "klv/writeElements.h"
#include "util/check.h"

inline namespace vexa_toolkit {

MXFIndexCoder::MXFIndexCoder(KLVHandler& next) : monitor_(next), filler_(monitor_) {}

MXFIndexCoder::~MXFIndexCoder() = default;

void MXFIndexCoder::startIndexTable() {
    util::check(!started_, "before start");
    started_ = true;
    filler_.setLocator(&monitor_.getLocator());
    filler_.startStream(true);
    filler_.berLengthForm(klvutil::defaultBERForm);
    filler_.setFill(KLVFiller::Align, kagSize_, 0);
    filler_.startFilledItem();
}

void MXFIndexCoder::endIndexTable() {
    filler_.setFill(KLVFiller::Align, 0, 0);
    filler_.endFilledItem();
    started_ = false;
    filler_.endStream(false);
}

void MXFIndexCoder::indexTableSegment(const MXFIndexTableSegment& segment) {
    util::check(started_, "before index table segment");
    filler_.endFilledItem();
    filler_.startFilledItem();
    klvutil::writeLocalSet(filler_, mxfindex::segmentKey,
                           mxfindex::encodeSegment(segment, codesAllProperties(segment)),
                           klvutil::defaultBERForm);
}

void MXFIndexCoder::setKAGSize(std::uint32_t kagSize) {
    kagSize_ = kagSize;
}

bool MXFIndexCoder::codesAllProperties(const MXFIndexTableSegment&) {
    return true;
}

} // namespace vexa_toolkit
