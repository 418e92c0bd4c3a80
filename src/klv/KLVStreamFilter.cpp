#include "klv/KLVStreamFilter.h"

KLVStreamFilter::~KLVStreamFilter() = default;

void KLVStreamFilter::setLocator(const Locator*) {}
void KLVStreamFilter::startStream(bool) {}
void KLVStreamFilter::endStream(bool) {}
