#pragma once

#include "klv/DullKLVFilter.h"

#include <type_traits>

inline namespace vexa_toolkit {

/// Does something before and after it passes an event on. setLocator is passed on without.
class ActionKLVFilter : public KLVForwarding<ActionKLVFilter, DullKLVFilter> {
public:
    using KLVForwarding::KLVForwarding;
    ~ActionKLVFilter() override;

    void setLocator(const Locator* locator) override { DullKLVFilter::setLocator(locator); }

protected:
    virtual void preAction() = 0;
    /// Not called when the event throws. What it does has no effect on the event's answer.
    virtual void postAction() = 0;

private:
    friend KLVForwarding<ActionKLVFilter, DullKLVFilter>;
    template <class Call> auto pass(Call call) {
        preAction();
        if constexpr (std::is_void_v<decltype(call(getHandler()))>) {
            call(getHandler());
            postAction();
        } else {
            const auto answer = call(getHandler());
            postAction();
            return answer;
        }
    }
};

} // namespace vexa_toolkit
