#include "klv/KLVStreamPadder.h"

inline namespace vexa_toolkit {

KLVStreamPadder::~KLVStreamPadder() = default;

void KLVStreamPadder::startStream(bool accurateLengths) {
    KLVFiller::startStream(accurateLengths);
    startFilledItem();
}

void KLVStreamPadder::endStream(bool aborted) {
    endFilledItem();
    KLVFiller::endStream(aborted);
}

} // namespace vexa_toolkit
