#pragma once

#include <vexa/gc/system/MXFQZProxySystemHandler.h>

inline namespace vexa_toolkit {

/// Does nothing, for a handler whose base is also that of others.
class VEXA_EXPORT DullMXFQZProxySystemHandler : public MXFQZProxySystemHandler {
public:
    ~DullMXFQZProxySystemHandler() override;

    void proxySystemItem(std::uint32_t frameCount,
                         const std::vector<MXFTimecode>& timecodes) override;
};

} // namespace vexa_toolkit
