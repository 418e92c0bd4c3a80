#include "klv/KLVStreamPadder.h"

#include "util/attempt.h"

inline namespace vexa_toolkit {

KLVStreamPadder::~KLVStreamPadder() = default;

void KLVStreamPadder::startStream(bool accurateLengths) {
    KLVFiller::startStream(accurateLengths);
    util::attempt([&] { startFilledItem(); }, [&] { KLVFiller::endStream(true); });
}

void KLVStreamPadder::endStream(bool aborted) {
    util::attempt([&] { endFilledItem(); }, [&] { KLVFiller::endStream(true); });
    KLVFiller::endStream(aborted);
}

} // namespace vexa_toolkit
