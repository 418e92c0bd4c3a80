#include "front/VEXASystemParser.h"

#include "gc/system/proxySystemItem.h"
#include "klv/KLVKeyMask.h"
#include "util/check.h"

inline namespace vexa_toolkit {

namespace {

/// The key of proxy system items up to byte 13, in whatever form.
constexpr KLVKeyMask makeProxyMask() {
    KLVKeyMask mask(gcsystem::proxySystemKey, 14);
    mask.mask[5] = 0;
    return mask;
}

constexpr KLVKeyMask proxyMask = makeProxyMask();

template <class Parser> MXFGCSystemHandler* addressOf(std::optional<Parser>& parser) {
    return parser ? &*parser : nullptr;
}

} // namespace

VEXASystemParser::VEXASystemParser() = default;

VEXASystemParser::~VEXASystemParser() = default;

bool VEXASystemParser::wantsSystem(const KLVKey& key) {
    current_ = proxyMask.matches(key) ? addressOf(proxyParser_) : addressOf(sdticpParser_);
    return current_ != nullptr && current_->wantsSystem(key);
}

void VEXASystemParser::systemLocalSet(const KLVKey& key, const LocalItems& items) {
    current().systemLocalSet(key, items);
}

void VEXASystemParser::systemFixedLengthPack(const KLVKey& key, const Bytes& value) {
    current().systemFixedLengthPack(key, value);
}

void VEXASystemParser::systemVariableLengthPack(const KLVKey& key, const PackItems& items) {
    current().systemVariableLengthPack(key, items);
}

void VEXASystemParser::setErrorHandler(ErrorHandler& errorHandler) {
    errorHandler_ = &errorHandler;
    if (sdticpParser_) {
        sdticpParser_->setErrorHandler(errorHandler_);
    }
    if (proxyParser_) {
        proxyParser_->setErrorHandler(errorHandler_);
    }
}

void VEXASystemParser::setSDTICPSystemHandler(MXFSDTICPSystemHandler& handler) {
    sdticpParser_.emplace(handler).setErrorHandler(errorHandler_);
}

void VEXASystemParser::setQZProxySystemHandler(MXFQZProxySystemHandler& handler) {
    proxyParser_.emplace(handler).setErrorHandler(errorHandler_);
}

MXFGCSystemHandler& VEXASystemParser::current() {
    util::check(current_ != nullptr, "current handler is present");
    return *current_;
}

} // namespace vexa_toolkit
