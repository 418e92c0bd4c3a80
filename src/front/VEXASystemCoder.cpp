#include "front/VEXASystemCoder.h"

inline namespace vexa_toolkit {

VEXASystemCoder::VEXASystemCoder(MXFGCSystemHandler& next)
    : sdticpCoder_(next), proxyCoder_(next) {}

VEXASystemCoder::~VEXASystemCoder() = default;

MXFSDTICPSystemHandler* VEXASystemCoder::getSDTICPSystemHandler() {
    return &sdticpCoder_;
}

MXFQZProxySystemHandler* VEXASystemCoder::getQZProxySystemHandler() {
    return &proxyCoder_;
}

} // namespace vexa_toolkit
