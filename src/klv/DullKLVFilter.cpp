#include "klv/DullKLVFilter.h"

KLVFilter::~KLVFilter() = default;
DullKLVFilter::~DullKLVFilter() = default;

void DullKLVFilter::setHandler(KLVHandler* handler) {
    next_.set(handler);
}

KLVHandler& DullKLVFilter::getHandler() {
    return next_.get();
}
