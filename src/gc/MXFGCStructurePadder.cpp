#include "gc/MXFGCStructurePadder.h"

#include "klv/berLength.h"
#include "util/attempt.h"
#include "util/check.h"

inline namespace vexa_toolkit {

MXFGCStructurePadder::MXFGCStructurePadder(KLVHandler& next, const Locator& locator)
    : filler_(next), locator_(&locator) {}

MXFGCStructurePadder::~MXFGCStructurePadder() = default;

void MXFGCStructurePadder::startStream(std::uint64_t kagSize) {
    kagSize_ = kagSize;
    filler_.setLocator(locator_);
    filler_.startStream(true);
    // Nobody ends what failed to begin.
    util::attempt([&] { filler_.berLengthForm(klvutil::defaultBERForm); },
                  [&] { filler_.endStream(true); });
}

void MXFGCStructurePadder::endStream() {
    filler_.endStream(false);
}

void MXFGCStructurePadder::startEditUnit() {}

void MXFGCStructurePadder::endEditUnit() {}

void MXFGCStructurePadder::startSlice() {}

void MXFGCStructurePadder::endSlice() {}

void MXFGCStructurePadder::startFixedElement(std::uint64_t length) {
    filler_.setFill(KLVFiller::Pad, kagSize_, length);
    filler_.startFilledItem();
}

void MXFGCStructurePadder::endFixedElement() {
    filler_.endFilledItem();
}

void MXFGCStructurePadder::startAlignedElement(std::uint64_t alignment) {
    util::check(kagSize_ == 0 || alignment % kagSize_ == 0, "alignment is multiple of KAG size");
    filler_.setFill(KLVFiller::Align, alignment != 0 ? alignment : kagSize_, 0);
    filler_.startFilledItem();
}

void MXFGCStructurePadder::endAlignedElement() {
    filler_.endFilledItem();
}

} // namespace vexa_toolkit
