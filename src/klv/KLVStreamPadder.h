#pragma once

#include "klv/KLVFiller.h"

inline namespace vexa_toolkit {

/// Fills a whole stream: the stretch runs from startStream to endStream. Where either fails, what
/// is behind it is told that the stream broke off, and a next stream can begin.
class KLVStreamPadder : public KLVFiller {
public:
    using KLVFiller::KLVFiller;
    ~KLVStreamPadder() override;

    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
};

} // namespace vexa_toolkit
