#pragma once

#include <vexa/klv/KLVHandler.h>
#include <vexa/klv/KLVKey.h>

#include <boost/shared_ptr.hpp>

#include <atomic>
#include <cstdint>
#include <istream>

inline namespace vexa_toolkit {

class Locator;

namespace klvelements {

/// What a reader shares with all elements of a parse.
struct KLVParse {
    /// May be null; any thread may set it.
    const std::atomic<bool>* stopRequest = nullptr;
    /// Where the last seek over a value led; no position at first.
    std::uint64_t skippedTo = UINT64_MAX;
};

/// One element of a KLV stream whose key has been read: parse() reads the rest, and fires its
/// events. Nothing that it points at is owned, and all must outlive it.
class KLVElement {
public:
    /// `form` is the parse's present BER form, which all its elements share. `locator` must count
    /// what is read and skipped. What isn't wanted is skipped by a seek if the stream is
    /// `seekable`, else by reading it. `parse` may be null.
    KLVElement(const KLVKey& key, std::istream& stream, KLVHandler& handler, std::uint8_t& form,
               const Locator& locator, bool seekable, KLVParse* parse);
    virtual ~KLVElement();

    /// False if it broke off between two pieces of a long value, or two elements of a set or pack,
    /// as a stop was requested: then no end event follows.
    ///
    /// Throws klvutil::parse_error for bad input, and what the handler throws.
    virtual bool parse() = 0;

protected:
    const KLVKey& key() const { return key_; }
    KLVHandler& handler() const { return *handler_; }

    /// Parses an element of the same parse behind a nested key.
    bool parseElement(const KLVKey& key) const;

    bool isStopped() const {
        return parse_ != nullptr && parse_->stopRequest != nullptr &&
               parse_->stopRequest->load(std::memory_order_relaxed);
    }

    KLVKey readNestedKey() const;
    /// Fires berLengthForm if the length comes in another form than the last one.
    std::uint64_t readLength() const;
    // These are false if the value broke off.
    bool readValue(std::uint64_t length, std::uint8_t* buffer) const;
    bool skipValue(std::uint64_t length) const;
    /// What follows a start event that took a buffer, and answered `wanted`.
    bool readOrSkip(bool wanted, std::uint64_t length, std::uint8_t* buffer) const;

    struct ItemHead {
        std::uint32_t tag;
        std::uint64_t length;
    };
    ItemHead readItemHead(TagType tagType, LengthType lengthType) const;
    std::uint64_t readItemLength(LengthType lengthType) const;

    std::uint64_t position() const;
    /// Bytes since `start`.
    std::uint64_t consumedSince(std::uint64_t start) const;

private:
    std::uint64_t readOctets(std::uint8_t count) const;

    KLVKey key_;
    std::istream* stream_;
    KLVHandler* handler_;
    std::uint8_t* form_;
    const Locator* locator_;
    bool seekable_;
    KLVParse* parse_;
};

class KLVIndividualItem : public KLVElement {
public:
    using KLVElement::KLVElement;
    bool parse() override;
};

class KLVUniversalSet : public KLVElement {
public:
    using KLVElement::KLVElement;
    bool parse() override;
};

class KLVLocalSet : public KLVElement {
public:
    using KLVElement::KLVElement;
    bool parse() override;

private:
    bool parseItems(TagType tagType, LengthType lengthType, std::uint64_t length) const;
};

class KLVVariableLengthPack : public KLVElement {
public:
    using KLVElement::KLVElement;
    bool parse() override;

private:
    bool parseItems(LengthType lengthType, std::uint64_t length) const;
};

class KLVFixedLengthPack : public KLVElement {
public:
    using KLVElement::KLVElement;
    bool parse() override;
};

class KLVWrapper : public KLVElement {
public:
    using KLVElement::KLVElement;
    bool parse() override;
};

class KLVLabel : public KLVElement {
public:
    using KLVElement::KLVElement;
    bool parse() override;
};

/// The element that a key announces. Throws klvutil::parse_error for a key of no known coding.
boost::shared_ptr<KLVElement> createKLVElement(const KLVKey& key, std::istream& stream,
                                               KLVHandler& handler, std::uint8_t& form,
                                               const Locator& locator, bool seekable,
                                               KLVParse* parse = nullptr);

/// Parses that element without an allocation. False as KLVElement::parse().
bool parseKLVElement(const KLVKey& key, std::istream& stream, KLVHandler& handler,
                     std::uint8_t& form, const Locator& locator, bool seekable, KLVParse* parse);

} // namespace klvelements

} // namespace vexa_toolkit
