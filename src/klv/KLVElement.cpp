#include "klv/KLVElement.h"

#include "klv/berLength.h"
#include "klv/faults.h"
#include "klv/positionOf.h"
#include "klv/smpte.h"
#include "klv/streams.h"

#include <boost/container/small_vector.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <array>
#include <limits>

inline namespace vexa_toolkit {

namespace klvelements {

using klvutil::fail;
using klvutil::KLVCoding;
namespace faults = klvutil::faults;

namespace {

constexpr std::uint64_t chunkSize = 65536;
constexpr std::uint64_t longestSeek = std::numeric_limits<std::streamoff>::max();
/// What is read over before the next look at whether to stop.
constexpr std::uint64_t longestIgnore = 1024 * 1024;

template <class Element> struct ElementType { using type = Element; };

/// Calls `visit` with the ElementType of the key's coding.
template <class Visit> auto visitElementType(const KLVKey& key, Visit visit) {
    switch (klvutil::classify(key)) {
    case KLVCoding::UniversalSet:
        return visit(ElementType<KLVUniversalSet>());
    case KLVCoding::LocalSet:
        return visit(ElementType<KLVLocalSet>());
    case KLVCoding::VariableLengthPack:
        return visit(ElementType<KLVVariableLengthPack>());
    case KLVCoding::FixedLengthPack:
        return visit(ElementType<KLVFixedLengthPack>());
    case KLVCoding::Wrapper:
        return visit(ElementType<KLVWrapper>());
    case KLVCoding::Label:
        return visit(ElementType<KLVLabel>());
    case KLVCoding::IndividualItem:
        break;
    }
    return visit(ElementType<KLVIndividualItem>());
}

} // namespace

KLVElement::KLVElement(const KLVKey& key, std::istream& stream, KLVHandler& handler,
                       std::uint8_t& form, const Locator& locator, bool seekable, KLVParse* parse)
    : key_(key), stream_(&stream), handler_(&handler), form_(&form), locator_(&locator),
      seekable_(seekable), parse_(parse) {}

KLVElement::~KLVElement() = default;

bool KLVElement::parseElement(const KLVKey& key) const {
    return parseKLVElement(key, *stream_, *handler_, *form_, *locator_, seekable_, parse_);
}

KLVKey KLVElement::readNestedKey() const {
    return klvutil::readKey(*stream_, nullptr);
}

std::uint64_t KLVElement::readLength() const {
    const klvutil::BERLength length = klvutil::readBERLength(*stream_, nullptr);
    if (length.form != *form_) {
        *form_ = length.form;
        handler_->berLengthForm(length.form);
    }
    return length.value;
}

bool KLVElement::readValue(std::uint64_t length, std::uint8_t* buffer) const {
    if (buffer != nullptr) {
        klvutil::checkedRead(*stream_, buffer, length, nullptr);
        handler_->value(buffer, length);
        return true;
    }
    std::array<std::uint8_t, chunkSize> chunk;
    for (std::uint64_t left = length; left > 0;) {
        const std::uint64_t size = std::min(left, chunkSize);
        klvutil::checkedRead(*stream_, chunk.data(), size, nullptr);
        handler_->value(chunk.data(), size);
        left -= size;
        if (left > 0 && isStopped()) {
            return false;
        }
    }
    return true;
}

bool KLVElement::skipValue(std::uint64_t length) const {
    for (std::uint64_t left = length; left > 0;) {
        const std::uint64_t size = std::min(left, seekable_ ? longestSeek : longestIgnore);
        if (seekable_) {
            klvutil::seekForward(*stream_, static_cast<std::streamoff>(size));
        } else {
            klvutil::ignoreExactly(*stream_, static_cast<std::streamoff>(size));
        }
        if (!stream_->good()) {
            fail(seekable_ ? faults::unsuccessfulSeek : faults::unsuccessfulIgnore);
        }
        left -= size;
        if (left > 0 && isStopped()) {
            return false;
        }
    }
    if (seekable_ && length > 0 && parse_ != nullptr) {
        parse_->skippedTo = klvutil::positionOf(*locator_) + length;
    }
    return true;
}

bool KLVElement::readOrSkip(bool wanted, std::uint64_t length, std::uint8_t* buffer) const {
    return wanted ? readValue(length, buffer) : skipValue(length);
}

KLVElement::ItemHead KLVElement::readItemHead(TagType tagType, LengthType lengthType) const {
    const std::uint8_t tagSize = klvutil::tagSize(tagType);
    if (lengthType == klvutil::berLengths) {
        const std::uint64_t tag = readOctets(tagSize);
        return {static_cast<std::uint32_t>(tag), readLength()};
    }
    const std::uint8_t lengthSize = klvutil::innerLengthSize(lengthType, *form_);
    const std::uint64_t both = readOctets(static_cast<std::uint8_t>(tagSize + lengthSize));
    const unsigned lengthBits = 8U * lengthSize;
    return {static_cast<std::uint32_t>(both >> lengthBits),
            both & ((std::uint64_t{1} << lengthBits) - 1)};
}

std::uint64_t KLVElement::readItemLength(LengthType lengthType) const {
    return lengthType == klvutil::berLengths
               ? readLength()
               : readOctets(klvutil::innerLengthSize(lengthType, *form_));
}

std::uint64_t KLVElement::readOctets(std::uint8_t count) const {
    return klvutil::readNumber(*stream_, count, nullptr);
}

std::uint64_t KLVElement::position() const {
    if (locator_->getPosition() == klvutil::noPosition) {
        fail(faults::unsuccessfulRead);
    }
    return klvutil::positionOf(*locator_);
}

std::uint64_t KLVElement::consumedSince(std::uint64_t start) const {
    return position() - start;
}

bool KLVIndividualItem::parse() {
    const std::uint64_t length = readLength();
    std::uint8_t* buffer = nullptr;
    const bool wanted = handler().startIndividualItem(key(), length, &buffer);
    if (!readOrSkip(wanted, length, buffer)) {
        return false;
    }
    handler().endIndividualItem(key());
    return true;
}

/// Sets nest as deep as the stream says: the open ones are kept here, not on the call stack.
bool KLVUniversalSet::parse() {
    struct OpenSet {
        KLVKey key;
        std::uint64_t length;
        std::uint64_t start;
    };
    boost::container::small_vector<OpenSet, 8> open;

    const auto enter = [&](const KLVKey& key) {
        const std::uint64_t length = readLength();
        if (handler().startUniversalSet(key, length)) {
            open.push_back({key, length, position()});
            return true;
        }
        if (!skipValue(length)) {
            return false;
        }
        handler().endUniversalSet(key);
        return true;
    };

    bool whole = enter(key());
    while (whole && !open.empty()) {
        const OpenSet set = open.back();
        const std::uint64_t consumed = consumedSince(set.start);
        if (consumed < set.length) {
            const KLVKey nested = readNestedKey();
            whole = (klvutil::classify(nested) == KLVCoding::UniversalSet ? enter(nested)
                                                                          : parseElement(nested)) &&
                    !isStopped();
        } else {
            if (consumed != set.length) {
                fail(faults::incorrectUniversalSet);
            }
            handler().endUniversalSet(set.key);
            open.pop_back();
        }
    }
    return whole;
}

bool KLVLocalSet::parse() {
    const klvutil::LocalSetWidths widths = klvutil::requireLocalSetWidths(key());
    const std::uint64_t length = readLength();
    const bool whole = handler().startLocalSet(key(), length, widths.tagType, widths.lengthType)
                           ? parseItems(widths.tagType, widths.lengthType, length)
                           : skipValue(length);
    if (whole) {
        handler().endLocalSet(key());
    }
    return whole;
}

bool KLVLocalSet::parseItems(TagType tagType, LengthType lengthType, std::uint64_t length) const {
    const std::uint64_t start = position();
    while (consumedSince(start) < length) {
        const auto [tag, itemLength] = readItemHead(tagType, lengthType);
        std::uint8_t* buffer = nullptr;
        const bool wanted = handler().startLocalItem(tag, itemLength, &buffer);
        if (!readOrSkip(wanted, itemLength, buffer)) {
            return false;
        }
        handler().endLocalItem(tag);
        if (isStopped()) {
            return false;
        }
    }
    if (consumedSince(start) != length) {
        fail(faults::incorrectLocalSet);
    }
    return true;
}

bool KLVVariableLengthPack::parse() {
    const LengthType lengthType = klvutil::requireVariableLengthPackWidth(key());
    const std::uint64_t length = readLength();
    const bool whole = handler().startVariableLengthPack(key(), length, lengthType)
                           ? parseItems(lengthType, length)
                           : skipValue(length);
    if (whole) {
        handler().endVariableLengthPack(key());
    }
    return whole;
}

bool KLVVariableLengthPack::parseItems(LengthType lengthType, std::uint64_t length) const {
    const std::uint64_t start = position();
    std::uint8_t* buffer = nullptr; // what a handler stores stays for the items that follow
    while (consumedSince(start) < length) {
        const std::uint64_t itemLength = readItemLength(lengthType);
        const bool wanted = handler().startVariableLengthItem(itemLength, &buffer);
        if (!readOrSkip(wanted, itemLength, buffer)) {
            return false;
        }
        handler().endVariableLengthItem();
        if (isStopped()) {
            return false;
        }
    }
    if (consumedSince(start) != length) {
        fail(faults::incorrectVariableLengthPack);
    }
    return true;
}

bool KLVFixedLengthPack::parse() {
    const std::uint64_t length = readLength();
    std::uint8_t* buffer = nullptr;
    const bool wanted = handler().startFixedLengthPack(key(), length, &buffer);
    if (!readOrSkip(wanted, length, buffer)) {
        return false;
    }
    handler().endFixedLengthPack(key());
    return true;
}

bool KLVWrapper::parse() {
    const bool simple = klvutil::isSimpleWrapper(key());
    const std::uint64_t length = readLength();
    std::uint8_t* buffer = nullptr;
    const bool wanted = handler().startWrapper(key(), length, simple, &buffer);
    if (!readOrSkip(wanted, length, buffer)) {
        return false;
    }
    handler().endWrapper(key());
    return true;
}

bool KLVLabel::parse() {
    handler().startLabel(key());
    handler().endLabel(key());
    return true;
}

boost::shared_ptr<KLVElement> createKLVElement(const KLVKey& key, std::istream& stream,
                                               KLVHandler& handler, std::uint8_t& form,
                                               const Locator& locator, bool seekable,
                                               KLVParse* parse) {
    return visitElementType(key, [&](auto type) -> boost::shared_ptr<KLVElement> {
        return boost::make_shared<typename decltype(type)::type>(key, stream, handler, form,
                                                                 locator, seekable, parse);
    });
}

bool parseKLVElement(const KLVKey& key, std::istream& stream, KLVHandler& handler,
                     std::uint8_t& form, const Locator& locator, bool seekable, KLVParse* parse) {
    return visitElementType(key, [&](auto type) {
        using Element = typename decltype(type)::type;
        return Element(key, stream, handler, form, locator, seekable, parse).parse();
    });
}

} // namespace klvelements

} // namespace vexa_toolkit
