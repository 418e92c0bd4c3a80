#include "klv/DullKLVFilter.h"

inline namespace vexa_toolkit {

DullKLVFilter::~DullKLVFilter() = default;

void DullKLVFilter::setHandler(KLVHandler* handler) {
    next_.set(handler);
}

} // namespace vexa_toolkit
