#include "klv/KLVTeller.h"

KLVTeller::KLVTeller(std::istream& stream) : stream_(&stream) {}

KLVTeller::KLVTeller(std::istream& stream, KLVHandler& next) : stream_(&stream), next_(next) {}

KLVTeller::~KLVTeller() = default;

void KLVTeller::setHandler(KLVHandler* handler) {
    next_.set(handler);
}

KLVHandler& KLVTeller::getHandler() {
    return next_.get();
}

InputLocator& KLVTeller::getLocator() {
    return locator_;
}

void KLVTeller::setLocator(const Locator*) {}

void KLVTeller::startStream(bool accurateLengths) {
    next_.get().setLocator(&locator_);
    KLVForwarding::startStream(accurateLengths);
}
