#include "klv/DullKLVFilter.h"

DullKLVFilter::~DullKLVFilter() = default;

void DullKLVFilter::setHandler(KLVHandler* handler) {
    next_.set(handler);
}
