#pragma once

#include "gc/system/MXFQZProxySystemCoder.h"
#include "gc/system/MXFSDTICPSystemCoder.h"

inline namespace vexa_toolkit {

/// Codes system items of both formats as system elements.
class VEXASystemCoder {
public:
    /// The handler is not owned.
    explicit VEXASystemCoder(MXFGCSystemHandler& next);
    VEXASystemCoder(const VEXASystemCoder&) = delete;
    VEXASystemCoder& operator=(const VEXASystemCoder&) = delete;
    virtual ~VEXASystemCoder();

    /// It lives as long as this, as the other does.
    virtual MXFSDTICPSystemHandler* getSDTICPSystemHandler();
    virtual MXFQZProxySystemHandler* getQZProxySystemHandler();

private:
    MXFSDTICPSystemCoder sdticpCoder_;
    MXFQZProxySystemCoder proxyCoder_;
};

} // namespace vexa_toolkit
