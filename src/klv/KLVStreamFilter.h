#pragma once

#include "klv/DullKLVFilter.h"

inline namespace vexa_toolkit {

/// Keeps back setLocator, startStream and endStream, so that several sources with stream brackets
/// of their own can feed one handler that has a single stream.
class KLVStreamFilter : public DullKLVFilter {
public:
    using DullKLVFilter::DullKLVFilter;
    ~KLVStreamFilter() override;

    void setLocator(const Locator* locator) override;
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
};

} // namespace vexa_toolkit
