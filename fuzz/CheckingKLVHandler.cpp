#include "support.h"

#include <algorithm>
#include <vexa/klv/Locator.h>

namespace fuzz {

namespace {

constexpr std::uint64_t chunkSize = 65536;

bool fits(std::uint64_t number, std::uint64_t octets) {
    return octets >= 8 || number >> (8 * octets) == 0;
}

} // namespace

std::uint64_t CheckingKLVHandler::position() const {
    require(locator_ != nullptr, "setLocator comes before the stream");
    return static_cast<std::uint64_t>(std::streamoff(locator_->getPosition()));
}

/// The octets that the length took, of the type of an item's lengths; 0 is BER coded.
std::uint64_t CheckingKLVHandler::lengthOctets(LengthType lengthType, std::uint64_t length) const {
    require(lengthType <= 3, "the length type is known");
    if (lengthType != 0) {
        const std::uint64_t octets = std::uint64_t{1} << (lengthType - 1);
        require(fits(length, octets), "an item's length fits its octets");
        return octets;
    }
    require(berForm_ != 0, "berLengthForm comes before the first length");
    if (berForm_ == 1) {
        require(length < 0x80, "a length fits the short form");
        return 1;
    }
    const std::uint64_t octets = berForm_ & 0x7F;
    require(fits(length, octets), "a length fits the long form");
    return 1 + octets;
}

bool CheckingKLVHandler::isWanted(const Element& element) const {
    switch (wants_) {
    case Wants::Everything:
        return true;
    case Wants::Nothing:
        return false;
    case Wants::SmallValuesInBuffer:
        break;
    case Wants::Something:
        return ((element.name ^ element.length ^ element.length >> 3) & 3) != 0;
    }
    return element.length <= buffer_.size() || element.form == Form::Universal ||
           element.form == Form::Local || element.form == Form::Variable;
}

bool CheckingKLVHandler::open(Form form, const KLVKey& key, std::uint64_t length,
                              std::uint8_t** buffer, TagType tagType, LengthType lengthType) {
    require(elements_.empty() || elements_.back().form == Form::Universal,
            "an element stands in the stream or in a universal set");
    require(!elements_.empty() || stop_ == nullptr || !*stop_, "no element follows a stop");
    const std::uint64_t head = KLVKey::size + (form == Form::Label ? 0 : lengthOctets(0, length));
    Element element{};
    element.form = form;
    element.name = digestOf(key);
    element.length = length;
    element.tagType = tagType;
    element.lengthType = lengthType;
    return push(element, head, buffer);
}

bool CheckingKLVHandler::push(Element element, std::uint64_t head, std::uint8_t** buffer) {
    require(open_, "events lie between startStream and endStream");
    if (elements_.empty()) {
        elementStarted(next_ - streamStart_);
    } else {
        const Element& outer = elements_.back();
        require(outer.wanted, "what isn't wanted doesn't come");
        require(next_ - outer.start < outer.length, "what a set holds begins within it");
    }
    element.start = position();
    require(element.start == next_ + head, "an element begins where the last one ended");
    element.wanted = isWanted(element);
    if (buffer != nullptr) {
        require(*buffer == nullptr ||
                    (element.form == Form::VariableItem && *buffer == buffer_.data()),
                "the buffer is the handler's own, or null");
        *buffer = nullptr;
        if (element.wanted && wants_ == Wants::SmallValuesInBuffer) {
            *buffer = buffer_.data();
            element.buffer = *buffer;
        }
    }
    trail_.add("start", {static_cast<std::uint64_t>(element.form), element.name, element.start,
                         element.length, element.tagType, element.lengthType});
    next_ = element.start;
    elements_.push_back(element);
    return element.wanted;
}

void CheckingKLVHandler::close(Form form, std::uint64_t name) {
    require(!elements_.empty() && elements_.back().form == form && elements_.back().name == name,
            "an end event has its start event");
    const Element& element = elements_.back();
    const bool hasValue = form != Form::Universal && form != Form::Local &&
                          form != Form::Variable && form != Form::Label;
    if (hasValue && element.wanted) {
        require(element.received == element.length, "a value that is wanted comes whole");
        require(element.valueSeen == (element.buffer != nullptr || element.length != 0),
                "an empty value comes if there is a buffer for it");
    }
    const std::uint64_t end = position();
    require(end == element.start + element.length, "an element is as long as announced");
    trail_.add("end", {static_cast<std::uint64_t>(form), name, end});
    next_ = end;
    elements_.pop_back();
    if (elements_.empty() && elementsLeft_ != 0 && --elementsLeft_ == 0) {
        *stop_ = true;
    }
}

void CheckingKLVHandler::stopAfter(unsigned elements, bool* stop) {
    elementsLeft_ = elements;
    stop_ = stop;
}

void CheckingKLVHandler::setLocator(const Locator* locator) {
    require(!open_, "setLocator comes before startStream");
    locator_ = locator;
}

void CheckingKLVHandler::startStream(bool accurateLengths) {
    require(!open_, "streams don't nest");
    require(accurateLengths, "lengths that were read are accurate");
    open_ = true;
    berForm_ = 0;
    streamStart_ = next_ = position();
    trail_.add("startStream", {next_});
    streamStarted();
}

void CheckingKLVHandler::endStream(bool aborted) {
    require(open_, "endStream has its startStream");
    open_ = false;
    if (aborted) {
        trail_.markFailure();
    } else {
        require(elements_.empty(), "a stream ends behind an element");
        require(position() == next_, "a stream ends where its last element ended");
    }
    elements_.clear();
    locator_ = nullptr;
    trail_.add("endStream", {aborted ? 1U : 0U});
    streamEnded(aborted, next_ - streamStart_);
}

void CheckingKLVHandler::berLengthForm(std::uint8_t form) {
    require(open_, "events lie between startStream and endStream");
    require(form == 1 || (form >= 0x81 && form <= 0x88), "the BER form is one that there is");
    require(form != berForm_, "berLengthForm comes when the form changes");
    berForm_ = form;
    trail_.add("berLengthForm", {form});
}

bool CheckingKLVHandler::startIndividualItem(const KLVKey& key, std::uint64_t length,
                                             std::uint8_t** buffer) {
    return open(Form::Item, key, length, buffer);
}

void CheckingKLVHandler::endIndividualItem(const KLVKey& key) {
    close(Form::Item, digestOf(key));
}

bool CheckingKLVHandler::startLabel(const KLVKey& key) {
    return open(Form::Label, key, 0);
}

void CheckingKLVHandler::endLabel(const KLVKey& key) {
    close(Form::Label, digestOf(key));
}

bool CheckingKLVHandler::startUniversalSet(const KLVKey& key, std::uint64_t length) {
    return open(Form::Universal, key, length);
}

void CheckingKLVHandler::endUniversalSet(const KLVKey& key) {
    close(Form::Universal, digestOf(key));
}

bool CheckingKLVHandler::startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                                       LengthType lengthType) {
    return open(Form::Local, key, length, nullptr, tagType, lengthType);
}

void CheckingKLVHandler::endLocalSet(const KLVKey& key) {
    close(Form::Local, digestOf(key));
}

bool CheckingKLVHandler::startLocalItem(std::uint32_t tag, std::uint64_t length,
                                        std::uint8_t** buffer) {
    require(!elements_.empty() && elements_.back().form == Form::Local, "a local item is in a set");
    const Element& set = elements_.back();
    require(set.tagType <= 2, "the tag type is known");
    const std::uint64_t tagOctets = std::uint64_t{1} << set.tagType;
    require(fits(tag, tagOctets), "a tag fits its octets");
    Element item{};
    item.form = Form::LocalItem;
    item.name = tag;
    item.length = length;
    return push(item, tagOctets + lengthOctets(set.lengthType, length), buffer);
}

void CheckingKLVHandler::endLocalItem(std::uint32_t tag) {
    close(Form::LocalItem, tag);
}

bool CheckingKLVHandler::startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                                              std::uint8_t** buffer) {
    return open(Form::Pack, key, length, buffer);
}

void CheckingKLVHandler::endFixedLengthPack(const KLVKey& key) {
    close(Form::Pack, digestOf(key));
}

bool CheckingKLVHandler::startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                                 LengthType lengthType) {
    return open(Form::Variable, key, length, nullptr, 0, lengthType);
}

void CheckingKLVHandler::endVariableLengthPack(const KLVKey& key) {
    close(Form::Variable, digestOf(key));
}

bool CheckingKLVHandler::startVariableLengthItem(std::uint64_t length, std::uint8_t** buffer) {
    require(!elements_.empty() && elements_.back().form == Form::Variable,
            "a variable length item is in a pack");
    Element item{};
    item.form = Form::VariableItem;
    item.length = length;
    return push(item, lengthOctets(elements_.back().lengthType, length), buffer);
}

void CheckingKLVHandler::endVariableLengthItem() {
    close(Form::VariableItem, 0);
}

bool CheckingKLVHandler::startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                                      std::uint8_t** buffer) {
    require(simple == (key[5] == 1), "the wrapper's kind is that of its key");
    return open(Form::Wrap, key, length, buffer);
}

void CheckingKLVHandler::endWrapper(const KLVKey& key) {
    close(Form::Wrap, digestOf(key));
}

void CheckingKLVHandler::value(const std::uint8_t* data, std::uint64_t size) {
    require(!elements_.empty() && elements_.back().wanted, "a value comes where it is wanted");
    Element& element = elements_.back();
    require(element.form != Form::Label && element.form != Form::Universal &&
                element.form != Form::Local && element.form != Form::Variable,
            "a value belongs to an element that has one");
    if (element.buffer != nullptr) {
        require(!element.valueSeen && data == element.buffer && size == element.length,
                "a value comes whole where it has a buffer");
    } else {
        require(size != 0 && size == std::min(chunkSize, element.length - element.received),
                "a value comes in whole chunks where it has no buffer");
    }
    element.valueSeen = true;
    element.received += size;
    trail_.add("value", {size, digestOf(data, size)});
}

} // namespace fuzz
