#pragma once

#include "klv/DullKLVFilter.h"

#include <vexa/klv/Locator.h>

inline namespace vexa_toolkit {

/// Tells positions by adding up what the events imply: the tracker of output, and of input that
/// can't seek. It gives the next handler a locator of its own, at startStream, and passes all
/// events on unchanged. The position goes on across streams until it is reset.
class KLVMonitor : public KLVForwarding<KLVMonitor, DullKLVFilter> {
public:
    /// Starts at 0.
    class MonitoredLocator : public Locator {
    public:
        ~MonitoredLocator() override;

        const std::streampos& getPosition() const override { return position_; }
        virtual void reset();
        void add(std::uint64_t size);

    private:
        std::streampos position_ = std::streampos(std::streamoff(0));
    };

    using KLVForwarding::KLVForwarding;
    ~KLVMonitor() override;

    virtual MonitoredLocator& getLocator();
    virtual void resetPosition();

    /// The locator is this filter's own.
    void setLocator(const Locator* locator) override;
    /// Lengths must be accurate: the check is "accurate monitoring is possible".
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override;
    bool startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                 LengthType lengthType) override;
    void value(const std::uint8_t* data, std::uint64_t size) override;

private:
    friend KLVForwarding<KLVMonitor, DullKLVFilter>;

    template <class Call> bool startElement(const KLVStart& start, Call call) {
        locator_.add(KLVKey::size + (start.coding == Coding::Label ? 0U : lengthSize_));
        return expect(start.length, pass(call));
    }
    template <class Call> void endElement(Coding, Call call) {
        itemLengthIsBER_ = false;
        settle();
        pass(call);
    }
    template <class Call> bool startItem(Coding, std::uint64_t length, Call call) {
        locator_.add(std::uint64_t{tagSize_} + itemLengthSize_);
        return expect(length, pass(call));
    }
    template <class Call> void endItem(Coding, Call call) {
        settle();
        pass(call);
    }
    template <class Call> auto pass(Call call) { return call(DullKLVFilter::getHandler()); }

    void setItemHead(std::uint8_t tagSize, LengthType lengthType);
    bool expect(std::uint64_t length, bool wanted);
    void settle();

    MonitoredLocator locator_;
    /// Octets of a BER length in the form last told.
    std::uint8_t lengthSize_ = 0;
    /// Octets of an item's tag and length in the present set or pack; the items of a pack have no
    /// tag.
    std::uint8_t tagSize_ = 0;
    std::uint8_t itemLengthSize_ = 0;
    /// Item lengths follow the form last told.
    bool itemLengthIsBER_ = false;
    /// Bytes of the present element's value that won't come as events.
    std::uint64_t pending_ = 0;
};

} // namespace vexa_toolkit
