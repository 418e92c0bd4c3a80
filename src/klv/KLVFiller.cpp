#include "klv/KLVFiller.h"

#include "klv/positionOf.h"
#include "klv/writeElements.h"
#include "util/check.h"

inline namespace vexa_toolkit {

KLVFiller::~KLVFiller() = default;

const Locator& KLVFiller::getLocator() const {
    util::check(locator_ != nullptr, "locator is present");
    return *locator_;
}

std::uint64_t KLVFiller::position() const {
    return klvutil::positionOf(getLocator());
}

void KLVFiller::setFill(std::uint32_t mode, std::uint64_t alignment, std::uint64_t paddedLength) {
    util::check(mode != Pad || alignment == 0 || paddedLength % alignment == 0,
                "padded length is multiple of alignment");
    mode_ = mode;
    alignment_ = alignment;
    paddedLength_ = paddedLength;
}

std::uint32_t KLVFiller::getMode() const {
    return mode_;
}

std::uint64_t KLVFiller::getAlignment() const {
    return alignment_;
}

std::uint64_t KLVFiller::getPaddedLength() const {
    return paddedLength_;
}

void KLVFiller::startFilledItem() {
    util::check(!inFilledItem_, "not in filled item");
    startPosition_ = position();
    inFilledItem_ = true;
}

void KLVFiller::endFilledItem() {
    util::check(inFilledItem_, "in filled item");
    const std::uint64_t written = position() - startPosition_;
    inFilledItem_ = false;
    if (mode_ == Pad) {
        pad(written);
    } else {
        align(written);
    }
}

void KLVFiller::pad(std::uint64_t written) {
    if (written == paddedLength_) {
        return;
    }
    const std::uint64_t least = written + klvutil::fillItemOverhead(form_);
    util::check(paddedLength_ >= least, "achievable padded length");
    klvutil::writeFillItem(getHandler(), paddedLength_ - least, form_);
}

void KLVFiller::align(std::uint64_t written) {
    if (alignment_ == 0 || written % alignment_ == 0) {
        return;
    }
    const std::uint64_t beyond = (written + klvutil::fillItemOverhead(form_)) % alignment_;
    klvutil::writeFillItem(getHandler(), beyond == 0 ? 0 : alignment_ - beyond, form_);
}

void KLVFiller::setLocator(const Locator* locator) {
    locator_ = locator;
}

void KLVFiller::endStream(bool aborted) {
    locator_ = nullptr;
    inFilledItem_ = false; // the stream may break off inside it
    DullKLVFilter::endStream(aborted);
}

void KLVFiller::berLengthForm(std::uint8_t form) {
    form_ = form;
    DullKLVFilter::berLengthForm(form);
}

} // namespace vexa_toolkit
