#pragma once

#include <vexa/klv/KLVHandler.h>

inline namespace vexa_toolkit {

/// All of KLVHandler, each event passed on through one place: `Derived` gives
/// `auto pass(Call call)`, which calls `call` with the handler to forward to and returns what it
/// answers. `Base` is KLVHandler or derives from it.
template <class Derived, class Base> class KLVForwarding : public Base {
public:
    using Base::Base;

    void setLocator(const Locator* locator) override {
        pass([=](KLVHandler& to) { to.setLocator(locator); });
    }
    void startStream(bool accurateLengths) override {
        pass([=](KLVHandler& to) { to.startStream(accurateLengths); });
    }
    void endStream(bool aborted) override {
        pass([=](KLVHandler& to) { to.endStream(aborted); });
    }
    void berLengthForm(std::uint8_t form) override {
        pass([=](KLVHandler& to) { to.berLengthForm(form); });
    }
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override {
        return pass([&](KLVHandler& to) { return to.startIndividualItem(key, length, buffer); });
    }
    void endIndividualItem(const KLVKey& key) override {
        pass([&](KLVHandler& to) { to.endIndividualItem(key); });
    }
    bool startLabel(const KLVKey& key) override {
        return pass([&](KLVHandler& to) { return to.startLabel(key); });
    }
    void endLabel(const KLVKey& key) override {
        pass([&](KLVHandler& to) { to.endLabel(key); });
    }
    bool startUniversalSet(const KLVKey& key, std::uint64_t length) override {
        return pass([&](KLVHandler& to) { return to.startUniversalSet(key, length); });
    }
    void endUniversalSet(const KLVKey& key) override {
        pass([&](KLVHandler& to) { to.endUniversalSet(key); });
    }
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override {
        return pass(
            [&](KLVHandler& to) { return to.startLocalSet(key, length, tagType, lengthType); });
    }
    void endLocalSet(const KLVKey& key) override {
        pass([&](KLVHandler& to) { to.endLocalSet(key); });
    }
    bool startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** buffer) override {
        return pass([=](KLVHandler& to) { return to.startLocalItem(tag, length, buffer); });
    }
    void endLocalItem(std::uint32_t tag) override {
        pass([=](KLVHandler& to) { to.endLocalItem(tag); });
    }
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                              std::uint8_t** buffer) override {
        return pass([&](KLVHandler& to) { return to.startFixedLengthPack(key, length, buffer); });
    }
    void endFixedLengthPack(const KLVKey& key) override {
        pass([&](KLVHandler& to) { to.endFixedLengthPack(key); });
    }
    bool startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                 LengthType lengthType) override {
        return pass(
            [&](KLVHandler& to) { return to.startVariableLengthPack(key, length, lengthType); });
    }
    void endVariableLengthPack(const KLVKey& key) override {
        pass([&](KLVHandler& to) { to.endVariableLengthPack(key); });
    }
    bool startVariableLengthItem(std::uint64_t length, std::uint8_t** buffer) override {
        return pass([=](KLVHandler& to) { return to.startVariableLengthItem(length, buffer); });
    }
    void endVariableLengthItem() override {
        pass([](KLVHandler& to) { to.endVariableLengthItem(); });
    }
    bool startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                      std::uint8_t** buffer) override {
        return pass([&](KLVHandler& to) { return to.startWrapper(key, length, simple, buffer); });
    }
    void endWrapper(const KLVKey& key) override {
        pass([&](KLVHandler& to) { to.endWrapper(key); });
    }
    void value(const std::uint8_t* data, std::uint64_t size) override {
        pass([=](KLVHandler& to) { to.value(data, size); });
    }

private:
    template <class Call> auto pass(Call call) { return static_cast<Derived*>(this)->pass(call); }
};

} // namespace vexa_toolkit
