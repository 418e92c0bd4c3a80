#include "support/CheckingHandlers.h"

#include <algorithm>

namespace checking {

std::uint64_t CheckingKLVHandler::position() const {
    require(locator_ != nullptr, "setLocator comes before the stream");
    return static_cast<std::uint64_t>(std::streamoff(locator_->getPosition()));
}

/// The octets that a length took, of the type of an item's lengths; 0 is BER coded.
std::uint64_t CheckingKLVHandler::lengthOctets(LengthType lengthType) const {
    if (lengthType != 0) {
        return std::uint64_t{1} << (lengthType - 1);
    }
    require(berForm_ != 0, "berLengthForm comes before the first length");
    return berForm_ == 1 ? 1 : 1 + (berForm_ & 0x7F);
}

/// The octets in front of an element's value.
std::uint64_t CheckingKLVHandler::headOctets(Form form) const {
    const Element outer = elements_.empty() ? Element{} : elements_.back();
    if (form == Form::LocalItem) {
        require(outer.form == Form::Local, "a local item is in a set");
        return (std::uint64_t{1} << outer.tagType) + lengthOctets(outer.lengthType);
    }
    if (form == Form::PackItem) {
        require(outer.form == Form::Variable, "a variable length item is in a pack");
        return lengthOctets(outer.lengthType);
    }
    require(outer.form == Form::Universal, "an element stands in the stream or in a universal set");
    return KLVKey::size + (form == Form::Label ? 0 : lengthOctets(0));
}

bool CheckingKLVHandler::isWanted(const Element& element) const {
    return wants_ == Wants::Everything ||
           (wants_ == Wants::SmallValuesInBuffer &&
            (element.length <= buffer_.size() || element.form < Form::Item)) ||
           (wants_ == Wants::Something &&
            ((element.name ^ element.length ^ element.length >> 3) & 3) != 0);
}

bool CheckingKLVHandler::start(Form form, std::uint64_t name, Length length, Buffer buffer,
                               TagType tagType, LengthType lengthType) {
    require(open_, "events lie between startStream and endStream");
    if (elements_.empty()) {
        require(stop_ == nullptr || !*stop_, "no element follows a stop");
        require(byteCount() < limit_, "an element begins within the stream's limit");
    } else {
        const Element& outer = elements_.back();
        require(outer.wanted, "what isn't wanted doesn't come");
        require(next_ - outer.start < outer.length, "what a set holds begins within it");
    }
    Element element{form, name, length, tagType, lengthType, position()};
    require(element.start == next_ + headOctets(form),
            "an element begins where the last one ended");
    element.wanted = isWanted(element);
    if (buffer != nullptr) {
        provideBuffer(element, buffer);
    }
    trail_.add("start", {static_cast<std::uint64_t>(form), name, element.start, length, tagType,
                         lengthType});
    next_ = element.start;
    elements_.push_back(element);
    return element.wanted;
}

void CheckingKLVHandler::provideBuffer(Element& element, Buffer buffer) {
    require(*buffer == nullptr || (element.form == Form::PackItem && *buffer == buffer_.data()),
            "the buffer is the handler's own, or null");
    *buffer = nullptr;
    if (element.wanted && wants_ == Wants::SmallValuesInBuffer) {
        *buffer = buffer_.data();
        element.buffer = *buffer;
    }
}

void CheckingKLVHandler::end(Form form, std::uint64_t name) {
    require(!elements_.empty() && elements_.back().form == form && elements_.back().name == name,
            "an end event has its start event");
    const Element& element = elements_.back();
    if (form >= Form::Item && element.wanted) {
        require(element.received == element.length, "a value that is wanted comes whole");
        require(element.valueSeen == (element.buffer != nullptr || element.length != 0),
                "an empty value comes if there is a buffer for it");
    }
    next_ = position();
    require(next_ == element.start + element.length, "an element is as long as announced");
    trail_.add("end", {static_cast<std::uint64_t>(form), name, next_});
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
}

void CheckingKLVHandler::endStream(bool aborted) {
    require(open_, "endStream has its startStream");
    open_ = false;
    require(aborted || elements_.empty(), "a stream ends behind an element");
    require(aborted || position() == next_, "a stream ends where its last element ended");
    elements_.clear();
    locator_ = nullptr;
    trail_.add("endStream", {aborted ? 1U : 0U});
}

void CheckingKLVHandler::berLengthForm(std::uint8_t form) {
    require(open_, "events lie between startStream and endStream");
    require(form == 1 || (form >= 0x81 && form <= 0x88), "the BER form is one that there is");
    require(form != berForm_, "berLengthForm comes when the form changes");
    berForm_ = form;
    trail_.add("berLengthForm", {form});
}

void CheckingKLVHandler::value(const std::uint8_t* data, std::uint64_t size) {
    require(!elements_.empty() && elements_.back().wanted, "a value comes where it is wanted");
    Element& element = elements_.back();
    require(element.form >= Form::Item, "a value belongs to an element that has one");
    if (element.buffer != nullptr) {
        require(!element.valueSeen && data == element.buffer && size == element.length,
                "a value comes whole where it has a buffer");
    } else {
        require(size != 0 &&
                    size == std::min<std::uint64_t>(65536, element.length - element.received),
                "a value comes in whole chunks where it has no buffer");
    }
    element.valueSeen = true;
    element.received += size;
    trail_.add("value", {size, digestOf(data, size)});
}

} // namespace checking
