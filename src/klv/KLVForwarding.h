#pragma once

#include "klv/smpte.h"

#include <vexa/klv/KLVHandler.h>

inline namespace vexa_toolkit {

/// An element that starts, of whatever form. A label has length 0.
struct KLVStart {
    klvutil::KLVCoding coding;
    const KLVKey& key;
    std::uint64_t length;
};

/// All of KLVHandler, brought down to five funnels:
///
///     bool startElement(const KLVStart& start, Call call)
///     void endElement(KLVCoding coding, Call call)
///     bool startItem(KLVCoding coding, std::uint64_t length, Call call)   in a set or pack of that
///     void endItem(KLVCoding coding, Call call)                           coding
///     auto pass(Call call)                                                everything else
///
/// `call` takes the handler to forward to, and returns what it answers. `Derived` gives pass();
/// the others that it doesn't give end there. `Base` is KLVHandler or derives from it.
template <class Derived, class Base> class KLVForwarding : public Base {
public:
    using Base::Base;

    void setLocator(const Locator* locator) override {
        self().pass([=](KLVHandler& to) { to.setLocator(locator); });
    }
    void startStream(bool accurateLengths) override {
        self().pass([=](KLVHandler& to) { to.startStream(accurateLengths); });
    }
    void endStream(bool aborted) override {
        self().pass([=](KLVHandler& to) { to.endStream(aborted); });
    }
    void berLengthForm(std::uint8_t form) override {
        self().pass([=](KLVHandler& to) { to.berLengthForm(form); });
    }
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override {
        return self().startElement({Coding::IndividualItem, key, length}, [&](KLVHandler& to) {
            return to.startIndividualItem(key, length, buffer);
        });
    }
    void endIndividualItem(const KLVKey& key) override {
        self().endElement(Coding::IndividualItem,
                          [&](KLVHandler& to) { to.endIndividualItem(key); });
    }
    bool startLabel(const KLVKey& key) override {
        return self().startElement({Coding::Label, key, 0},
                                   [&](KLVHandler& to) { return to.startLabel(key); });
    }
    void endLabel(const KLVKey& key) override {
        self().endElement(Coding::Label, [&](KLVHandler& to) { to.endLabel(key); });
    }
    bool startUniversalSet(const KLVKey& key, std::uint64_t length) override {
        return self().startElement({Coding::UniversalSet, key, length}, [&](KLVHandler& to) {
            return to.startUniversalSet(key, length);
        });
    }
    void endUniversalSet(const KLVKey& key) override {
        self().endElement(Coding::UniversalSet, [&](KLVHandler& to) { to.endUniversalSet(key); });
    }
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override {
        return self().startElement({Coding::LocalSet, key, length}, [&](KLVHandler& to) {
            return to.startLocalSet(key, length, tagType, lengthType);
        });
    }
    void endLocalSet(const KLVKey& key) override {
        self().endElement(Coding::LocalSet, [&](KLVHandler& to) { to.endLocalSet(key); });
    }
    bool startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** buffer) override {
        return self().startItem(Coding::LocalSet, length, [=](KLVHandler& to) {
            return to.startLocalItem(tag, length, buffer);
        });
    }
    void endLocalItem(std::uint32_t tag) override {
        self().endItem(Coding::LocalSet, [=](KLVHandler& to) { to.endLocalItem(tag); });
    }
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                              std::uint8_t** buffer) override {
        return self().startElement({Coding::FixedLengthPack, key, length}, [&](KLVHandler& to) {
            return to.startFixedLengthPack(key, length, buffer);
        });
    }
    void endFixedLengthPack(const KLVKey& key) override {
        self().endElement(Coding::FixedLengthPack,
                          [&](KLVHandler& to) { to.endFixedLengthPack(key); });
    }
    bool startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                 LengthType lengthType) override {
        return self().startElement({Coding::VariableLengthPack, key, length}, [&](KLVHandler& to) {
            return to.startVariableLengthPack(key, length, lengthType);
        });
    }
    void endVariableLengthPack(const KLVKey& key) override {
        self().endElement(Coding::VariableLengthPack,
                          [&](KLVHandler& to) { to.endVariableLengthPack(key); });
    }
    bool startVariableLengthItem(std::uint64_t length, std::uint8_t** buffer) override {
        return self().startItem(Coding::VariableLengthPack, length, [=](KLVHandler& to) {
            return to.startVariableLengthItem(length, buffer);
        });
    }
    void endVariableLengthItem() override {
        self().endItem(Coding::VariableLengthPack,
                       [](KLVHandler& to) { to.endVariableLengthItem(); });
    }
    bool startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                      std::uint8_t** buffer) override {
        return self().startElement({Coding::Wrapper, key, length}, [&](KLVHandler& to) {
            return to.startWrapper(key, length, simple, buffer);
        });
    }
    void endWrapper(const KLVKey& key) override {
        self().endElement(Coding::Wrapper, [&](KLVHandler& to) { to.endWrapper(key); });
    }
    void value(const std::uint8_t* data, std::uint64_t size) override {
        self().pass([=](KLVHandler& to) { to.value(data, size); });
    }

protected:
    using Coding = klvutil::KLVCoding;

    template <class Call> bool startElement(const KLVStart&, Call call) {
        return self().pass(call);
    }
    template <class Call> void endElement(Coding, Call call) { self().pass(call); }
    template <class Call> bool startItem(Coding, std::uint64_t, Call call) {
        return self().pass(call);
    }
    template <class Call> void endItem(Coding, Call call) { self().pass(call); }

private:
    Derived& self() { return static_cast<Derived&>(*this); }
};

} // namespace vexa_toolkit
