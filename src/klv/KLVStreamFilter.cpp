#include "klv/KLVStreamFilter.h"

inline namespace vexa_toolkit {

KLVStreamFilter::~KLVStreamFilter() = default;

void KLVStreamFilter::setLocator(const Locator*) {}
void KLVStreamFilter::startStream(bool) {}
void KLVStreamFilter::endStream(bool) {}

} // namespace vexa_toolkit
