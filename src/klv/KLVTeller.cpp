#include "klv/KLVTeller.h"

#include "util/check.h"

KLVTeller::KLVTeller(std::istream& stream) : stream_(&stream) {}

KLVTeller::KLVTeller(std::istream& stream, KLVHandler& next) : stream_(&stream), next_(&next) {}

KLVTeller::~KLVTeller() = default;

void KLVTeller::setHandler(KLVHandler* handler) {
    next_ = handler;
}

KLVHandler& KLVTeller::getHandler() {
    return next();
}

KLVHandler& KLVTeller::next() const {
    util::check(next_ != nullptr, "handler is present");
    return *next_;
}

InputLocator& KLVTeller::getLocator() {
    return locator_;
}

void KLVTeller::setLocator(const Locator*) {}

void KLVTeller::startStream(bool accurateLengths) {
    next().setLocator(&locator_);
    KLVForwarding::startStream(accurateLengths);
}
