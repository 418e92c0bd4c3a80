#include "index/MXFIndexCoder.h"

#include "index/indexSegment.h"
#include "klv/berLength.h"
#include "klv/writeElements.h"
#include "util/attempt.h"
#include "util/check.h"

inline namespace vexa_toolkit {

MXFIndexCoder::MXFIndexCoder(KLVHandler& next) : monitor_(next), filler_(monitor_) {}

MXFIndexCoder::~MXFIndexCoder() = default;

void MXFIndexCoder::startIndexTable() {
    util::check(!started_, "before start");
    filler_.setLocator(&monitor_.getLocator());
    filler_.startStream(true);
    util::attempt(
        [&] {
            filler_.berLengthForm(klvutil::defaultBERForm);
            filler_.setFill(KLVFiller::Align, kagSize_, 0);
            filler_.startFilledItem();
        },
        [&] { filler_.endStream(true); });
    started_ = true;
}

void MXFIndexCoder::endIndexTable() {
    util::check(started_, "in filled item");
    started_ = false;
    filler_.setFill(KLVFiller::Align, 0, 0);
    util::attempt([&] { filler_.endFilledItem(); }, [&] { filler_.endStream(true); });
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
