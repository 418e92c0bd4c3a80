#pragma once

#include <vexa/gc/MXFGCSystemHandler.h>
#include <vexa/gc/system/MXFQZProxySystemHandler.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// Codes proxy system items as system elements. The next handler isn't asked whether it wants them.
class MXFQZProxySystemCoder : public MXFQZProxySystemHandler {
public:
    /// The handler is not owned.
    explicit MXFQZProxySystemCoder(MXFGCSystemHandler& next);
    ~MXFQZProxySystemCoder() override;

    /// A set holds up to 8,190 timecodes, as their length takes two bytes: more of them fail in the
    /// writer, behind the key.
    void proxySystemItem(std::uint32_t frameCount,
                         const std::vector<MXFTimecode>& timecodes) override;

private:
    MXFGCSystemHandler& next_;
};

} // namespace vexa_toolkit
