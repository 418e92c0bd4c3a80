#include "klv/KLVStreamPadder.h"

KLVStreamPadder::~KLVStreamPadder() = default;

void KLVStreamPadder::startStream(bool accurateLengths) {
    KLVFiller::startStream(accurateLengths);
    startFilledItem();
}

void KLVStreamPadder::endStream(bool aborted) {
    endFilledItem();
    KLVFiller::endStream(aborted);
}
