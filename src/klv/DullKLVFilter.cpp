#include "klv/DullKLVFilter.h"

#include "util/check.h"

KLVFilter::~KLVFilter() = default;
DullKLVFilter::~DullKLVFilter() = default;

void DullKLVFilter::setHandler(KLVHandler* handler) {
    next_ = handler;
}

KLVHandler& DullKLVFilter::getHandler() {
    util::check(next_ != nullptr, "handler is present");
    return *next_;
}
