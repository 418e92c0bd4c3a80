#pragma once

#include "klv/DullKLVFilter.h"
#include "klv/InputLocator.h"

inline namespace vexa_toolkit {

/// Tells positions by asking the stream at each event: the tracker of seekable input. It gives the
/// next handler a locator of its own, at startStream, and passes all events on unchanged.
class KLVTeller : public KLVForwarding<KLVTeller, DullKLVFilter> {
public:
    /// Neither stream nor handler is owned.
    explicit KLVTeller(std::istream& stream);
    KLVTeller(std::istream& stream, KLVHandler& next);
    ~KLVTeller() override;

    virtual InputLocator& getLocator();

    /// The locator is this filter's own.
    void setLocator(const Locator* locator) override;
    void startStream(bool accurateLengths) override;

private:
    friend KLVForwarding<KLVTeller, DullKLVFilter>;
    template <class Call> auto pass(Call call) {
        locator_.update(*stream_);
        return call(DullKLVFilter::getHandler());
    }

    std::istream* stream_;
    InputLocator locator_;
};

} // namespace vexa_toolkit
