#pragma once

#include "klv/KLVFilter.h"
#include "klv/KLVForwarding.h"
#include "klv/NextHandler.h"

inline namespace vexa_toolkit {

/// Passes every event on unchanged, and answers what the next handler answers: a base for filters
/// that care about a few events.
class DullKLVFilter : public KLVForwarding<DullKLVFilter, KLVFilter> {
public:
    DullKLVFilter() = default;
    explicit DullKLVFilter(KLVHandler& next) : next_(next) {}
    ~DullKLVFilter() override;

    void setHandler(KLVHandler* handler) override;
    KLVHandler& getHandler() override { return next_.get(); }

private:
    friend KLVForwarding<DullKLVFilter, KLVFilter>;
    template <class Call> auto pass(Call call) { return call(getHandler()); }

    NextHandler next_;
};

} // namespace vexa_toolkit
