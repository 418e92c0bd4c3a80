#pragma once

#include "klv/DullKLVFilter.h"

#include <vexa/klv/Locator.h>

inline namespace vexa_toolkit {

/// Tells positions by adding up what the events imply: the tracker of output, and of input that
/// can't seek. It gives the next handler a locator of its own, at startStream, and passes all
/// events on unchanged. The position goes on across streams until it is reset.
class KLVMonitor : public DullKLVFilter {
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

    using DullKLVFilter::DullKLVFilter;
    ~KLVMonitor() override;

    virtual MonitoredLocator& getLocator();
    virtual void resetPosition();

    /// The locator is this filter's own.
    void setLocator(const Locator* locator) override;
    /// Lengths must be accurate: the check is "accurate monitoring is possible".
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override;
    void endIndividualItem(const KLVKey& key) override;
    bool startLabel(const KLVKey& key) override;
    bool startUniversalSet(const KLVKey& key, std::uint64_t length) override;
    void endUniversalSet(const KLVKey& key) override;
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override;
    void endLocalSet(const KLVKey& key) override;
    bool startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** buffer) override;
    void endLocalItem(std::uint32_t tag) override;
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                              std::uint8_t** buffer) override;
    void endFixedLengthPack(const KLVKey& key) override;
    bool startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                 LengthType lengthType) override;
    void endVariableLengthPack(const KLVKey& key) override;
    bool startVariableLengthItem(std::uint64_t length, std::uint8_t** buffer) override;
    void endVariableLengthItem() override;
    bool startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                      std::uint8_t** buffer) override;
    void endWrapper(const KLVKey& key) override;
    void value(const std::uint8_t* data, std::uint64_t size) override;

private:
    std::uint64_t headSize() const;
    void setItemLength(LengthType lengthType);
    bool expect(std::uint64_t length, bool wanted);
    void settle();

    MonitoredLocator locator_;
    /// Octets of a BER length in the form last told.
    std::uint8_t lengthSize_ = 0;
    /// Octets of a tag, and of an item's length, in the present set or pack.
    std::uint8_t tagSize_ = 0;
    std::uint8_t itemLengthSize_ = 0;
    /// Item lengths follow the form last told.
    bool itemLengthIsBER_ = false;
    /// Bytes of the present element's value that won't come as events.
    std::uint64_t pending_ = 0;
};

} // namespace vexa_toolkit
