#include "klv/KLVTeller.h"

KLVTeller::KLVTeller(std::istream& stream) : stream_(&stream) {}

KLVTeller::KLVTeller(std::istream& stream, KLVHandler& next)
    : KLVForwarding(next), stream_(&stream) {}

KLVTeller::~KLVTeller() = default;

InputLocator& KLVTeller::getLocator() {
    return locator_;
}

void KLVTeller::setLocator(const Locator*) {}

void KLVTeller::startStream(bool accurateLengths) {
    DullKLVFilter::setLocator(&locator_);
    KLVForwarding::startStream(accurateLengths);
}
