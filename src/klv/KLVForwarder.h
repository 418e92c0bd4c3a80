#pragma once

#include "klv/KLVForwarding.h"

inline namespace vexa_toolkit {

/// Passes each event to whatever getForwardee() returns at that moment, so a subclass can switch
/// its target from event to event. Nothing keeps a start event and its end at the same target.
class KLVForwarder : public KLVForwarding<KLVForwarder, KLVHandler> {
public:
    ~KLVForwarder() override;

protected:
    virtual KLVHandler& getForwardee() = 0;

private:
    friend KLVForwarding<KLVForwarder, KLVHandler>;
    template <class Call> auto pass(Call call) { return call(getForwardee()); }
};

} // namespace vexa_toolkit
