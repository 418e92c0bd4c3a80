#pragma once

#include "klv/InputLocator.h"
#include "klv/KLVFilter.h"
#include "klv/KLVForwarding.h"
#include "klv/NextHandler.h"

/// Tells positions by asking the stream at each event: the tracker of seekable input. It gives the
/// next handler a locator of its own, at startStream, and passes all events on unchanged.
class KLVTeller : public KLVForwarding<KLVTeller, KLVFilter> {
public:
    /// Neither stream nor handler is owned.
    explicit KLVTeller(std::istream& stream);
    KLVTeller(std::istream& stream, KLVHandler& next);
    ~KLVTeller() override;

    void setHandler(KLVHandler* handler) override;
    KLVHandler& getHandler() override;
    virtual InputLocator& getLocator();

    /// The locator is this filter's own.
    void setLocator(const Locator* locator) override;
    void startStream(bool accurateLengths) override;

private:
    friend KLVForwarding<KLVTeller, KLVFilter>;
    template <class Call> auto pass(Call call) {
        locator_.update(*stream_);
        return call(next_.get());
    }

    std::istream* stream_;
    NextHandler next_;
    InputLocator locator_;
};
