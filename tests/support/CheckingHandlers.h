#pragma once

#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/KLVHandler.h>
#include <vexa/klv/Locator.h>
#include <vexa/klv/parse_error.h>

#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

/// Handlers that hold the events of a read against their grammar, and a digest of the events by
/// which two reads are compared. What they find ends the process: they serve where input is damaged
/// at random.
namespace checking {

/// Ends the process with `expectation` on standard error unless it holds: that is a finding.
void require(bool holds, const char* expectation);
[[noreturn]] void finding(const std::string& text);

/// A digest of all events of a run.
class Trail {
public:
    void add(const char* event, std::initializer_list<std::uint64_t> numbers);
    std::uint64_t digest() const { return digest_; }

private:
    std::uint64_t digest_ = 1;
};

std::uint64_t digestOf(const void* data, std::uint64_t size);
inline std::uint64_t digestOf(const KLVKey& key) {
    return digestOf(key.bytes.data(), KLVKey::size);
}

enum class Wants { Everything, Nothing, SmallValuesInBuffer, Something };

/// Holds the events of a KLV stream against the grammar of KLVHandler and against each other: the
/// elements must lie in the stream without a gap, as long as announced.
class CheckingKLVHandler : public KLVHandler {
    using Length = std::uint64_t;
    using Buffer = std::uint8_t**;

public:
    CheckingKLVHandler(Trail& trail, Wants wants) : trail_(trail), wants_(wants) {}

    /// Sets the flag at the end of that many elements.
    void stopAfter(unsigned elements, bool* stop);
    /// No element may begin so far from the stream's start, or farther.
    void limitTo(std::uint64_t byteCount) { limit_ = byteCount; }
    bool isOpen() const { return open_; }
    /// Of the stream, up to the end of its last element.
    std::uint64_t byteCount() const { return next_ - streamStart_; }

    void setLocator(const Locator* locator) override;
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    void value(const std::uint8_t* data, std::uint64_t size) override;

    bool startIndividualItem(const KLVKey& key, Length length, Buffer buffer) override {
        return start(Form::Item, digestOf(key), length, buffer);
    }
    void endIndividualItem(const KLVKey& key) override { end(Form::Item, digestOf(key)); }
    bool startLabel(const KLVKey& key) override { return start(Form::Label, digestOf(key), 0); }
    void endLabel(const KLVKey& key) override { end(Form::Label, digestOf(key)); }
    bool startUniversalSet(const KLVKey& key, Length length) override {
        return start(Form::Universal, digestOf(key), length);
    }
    void endUniversalSet(const KLVKey& key) override { end(Form::Universal, digestOf(key)); }
    bool startLocalSet(const KLVKey& key, Length length, TagType tag, LengthType item) override {
        return start(Form::Local, digestOf(key), length, nullptr, tag, item);
    }
    void endLocalSet(const KLVKey& key) override { end(Form::Local, digestOf(key)); }
    bool startLocalItem(std::uint32_t tag, Length length, Buffer buffer) override {
        return start(Form::LocalItem, tag, length, buffer);
    }
    void endLocalItem(std::uint32_t tag) override { end(Form::LocalItem, tag); }
    bool startFixedLengthPack(const KLVKey& key, Length length, Buffer buffer) override {
        return start(Form::Pack, digestOf(key), length, buffer);
    }
    void endFixedLengthPack(const KLVKey& key) override { end(Form::Pack, digestOf(key)); }
    bool startVariableLengthPack(const KLVKey& key, Length length, LengthType item) override {
        return start(Form::Variable, digestOf(key), length, nullptr, 0, item);
    }
    void endVariableLengthPack(const KLVKey& key) override { end(Form::Variable, digestOf(key)); }
    bool startVariableLengthItem(Length length, Buffer buffer) override {
        return start(Form::PackItem, 0, length, buffer);
    }
    void endVariableLengthItem() override { end(Form::PackItem, 0); }
    bool startWrapper(const KLVKey& key, Length length, bool simple, Buffer buffer) override {
        require(simple == (key[5] == 1), "the wrapper's kind is that of its key");
        return start(Form::Wrapper, digestOf(key), length, buffer);
    }
    void endWrapper(const KLVKey& key) override { end(Form::Wrapper, digestOf(key)); }

private:
    /// From Item on they have a value.
    enum class Form { Universal, Local, Variable, Label, Item, LocalItem, Pack, PackItem, Wrapper };
    struct Element {
        Form form = Form::Universal;
        /// The digest of the key, or the tag.
        std::uint64_t name = 0;
        std::uint64_t length = 0;
        TagType tagType = 0;
        LengthType lengthType = 0;
        std::uint64_t start = 0;
        std::uint64_t received = 0;
        bool wanted = false;
        bool valueSeen = false;
        const std::uint8_t* buffer = nullptr;
    };

    std::uint64_t position() const;
    std::uint64_t lengthOctets(LengthType lengthType) const;
    std::uint64_t headOctets(Form form) const;
    bool isWanted(const Element& element) const;
    bool start(Form form, std::uint64_t name, Length length, Buffer buffer = nullptr,
               TagType tagType = 0, LengthType lengthType = 0);
    void provideBuffer(Element& element, Buffer buffer);
    void end(Form form, std::uint64_t name);

    Trail& trail_;
    Wants wants_;
    unsigned elementsLeft_ = 0;
    bool* stop_ = nullptr;
    std::uint64_t limit_ = UINT64_MAX;
    const Locator* locator_ = nullptr;
    bool open_ = false;
    std::uint8_t berForm_ = 0;
    std::uint64_t streamStart_ = 0;
    /// Where the next key, tag or length must begin.
    std::uint64_t next_ = 0;
    std::vector<Element> elements_;
    std::array<std::uint8_t, 1024> buffer_{};
};

/// Holds the reports against the grammar of ErrorHandler.
class CheckingErrorHandler : public ErrorHandler {
public:
    explicit CheckingErrorHandler(Trail& trail) : trail_(trail) {}

    /// The error that left the parse, null if there was none, must be the one that was reported.
    void checkOutcome(const klvutil::parse_error* error) const;

    void setLocator(const Locator* locator) override;
    void startParse() override;
    void endParse() override;
    void warning(const MXFUID& code, const std::string& text) override { add("w", code, text); }
    void error(const MXFUID& code, const std::string& text) override { add("e", code, text); }
    void fatalError(const MXFUID& code, const std::string& text) override;

private:
    void add(const char* severity, const MXFUID& code, const std::string& text);

    Trail& trail_;
    const Locator* locator_ = nullptr;
    bool inParse_ = false;
    bool failed_ = false;
    MXFUID fatalCode_;
    std::string fatalText_;
};

/// Runs a parse. Only klvutil::parse_error may leave it, and the error handler, which may be null,
/// must know it. Returns its text, or an empty one.
std::string failureOf(const CheckingErrorHandler* errors, const std::function<void()>& parse);

} // namespace checking
