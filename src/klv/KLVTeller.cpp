#include "klv/KLVTeller.h"

inline namespace vexa_toolkit {

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

} // namespace vexa_toolkit
