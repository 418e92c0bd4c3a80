#include "gc/MXFGCSplitter.h"

#include "gc/faults.h"
#include "klv/fillItem.h"
#include "util/check.h"
#include "util/hex.h"
#include "util/quietly.h"

#include <vexa/gc/MXFGCChunkedEssenceHandler.h>
#include <vexa/gc/MXFGCElementKey.h>
#include <vexa/gc/MXFGCEssenceHandler.h>
#include <vexa/gc/MXFGCStructureHandler.h>
#include <vexa/gc/MXFGCSystemHandler.h>

inline namespace vexa_toolkit {

using klvutil::describe;
using klvutil::report;
namespace faults = mxfgc::faults;

namespace {

template <class Handler> Handler& require(Handler* handler, const char* condition) {
    util::check(handler != nullptr, condition);
    return *handler;
}

} // namespace

MXFGCSplitter::MXFGCSplitter(MXFGCStructureHandler* structure, MXFGCSystemHandler* system,
                             MXFGCEssenceHandler* essence)
    : structureHandler_(structure), systemHandler_(system), essenceHandler_(essence),
      chunkedHandler_(dynamic_cast<MXFGCChunkedEssenceHandler*>(essence)) {}

MXFGCSplitter::~MXFGCSplitter() = default;

// Handlers

void MXFGCSplitter::setStructureHandler(MXFGCStructureHandler* handler) {
    structureHandler_ = handler;
}

MXFGCStructureHandler& MXFGCSplitter::getStructureHandler() {
    return require(structureHandler_, "structure handler is present");
}

void MXFGCSplitter::setSystemHandler(MXFGCSystemHandler* handler) {
    systemHandler_ = handler;
}

MXFGCSystemHandler& MXFGCSplitter::getSystemHandler() {
    return require(systemHandler_, "system handler is present");
}

void MXFGCSplitter::setEssenceHandler(MXFGCEssenceHandler* handler) {
    essenceHandler_ = handler;
    chunkedHandler_ = dynamic_cast<MXFGCChunkedEssenceHandler*>(handler);
}

MXFGCEssenceHandler& MXFGCSplitter::getEssenceHandler() {
    return require(essenceHandler_, "essence handler is present");
}

void MXFGCSplitter::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

void MXFGCSplitter::setEssenceBuffer(EssenceBuffer& buffer) {
    essence_ = &buffer;
}

// What an element is

bool MXFGCSplitter::isSystemElement(const KLVKey& key) {
    return MXFGCElementKey::isSystem(key);
}

bool MXFGCSplitter::isEssenceElement(const KLVKey& key) {
    return MXFGCElementKey::isEssence(key);
}

bool MXFGCSplitter::isPictureElement(const KLVKey& key) {
    return MXFGCElementKey::isPicture(key);
}

bool MXFGCSplitter::isSoundElement(const KLVKey& key) {
    return MXFGCElementKey::isSound(key);
}

bool MXFGCSplitter::isDataElement(const KLVKey& key) {
    return MXFGCElementKey::isData(key);
}

bool MXFGCSplitter::isCompoundElement(const KLVKey& key) {
    return MXFGCElementKey::isCompound(key);
}

bool MXFGCSplitter::allowsMixedEssence() {
    return false;
}

std::optional<MXFGCSplitter::Category> MXFGCSplitter::categoryOf(const KLVKey& key) {
    if (isPictureElement(key)) {
        return Picture;
    }
    if (isSoundElement(key)) {
        return Sound;
    }
    if (isDataElement(key)) {
        return Data;
    }
    if (isCompoundElement(key)) {
        return Compound;
    }
    return std::nullopt;
}

// Stream and edit units

bool MXFGCSplitter::inEssence() const {
    return state_ == State::EssenceOnly || state_ == State::InEssence;
}

bool MXFGCSplitter::inEditUnit() const {
    return state_ == State::InSystem || inEssence();
}

void MXFGCSplitter::startStream(bool accurateLengths) {
    util::check(state_ == State::Idle, "before start");
    util::check(accurateLengths, "has accurate lengths");
    form_ = klvutil::noBERForm;
    toldForm_ = klvutil::noBERForm;
    firstKey_.reset();
    state_ = State::Started;
    if (structureHandler_ != nullptr) {
        structureHandler_->startStream(0);
    }
}

void MXFGCSplitter::endStream(bool) {
    const bool editUnitOpen = inEditUnit() && editUnitOpen_;
    const bool streamOpen = state_ != State::Idle;
    state_ = State::Idle;
    if (structureHandler_ == nullptr || !streamOpen) {
        return;
    }
    if (editUnitOpen) {
        try {
            structureHandler_->endEditUnit();
        } catch (...) {
            util::quietly([&] { structureHandler_->endStream(); });
            throw;
        }
    }
    structureHandler_->endStream();
}

void MXFGCSplitter::berLengthForm(std::uint8_t form) {
    if (form != klvutil::defaultBERForm && form != klvutil::longBERForm) {
        klvutil::report(errorHandler_, faults::nonStandardBERLength, describe(form));
    }
    form_ = form;
}

/// Begins an edit unit where the first key of the stream comes back, whatever kind of element it
/// stands for.
void MXFGCSplitter::startElement(const KLVKey& key) {
    key_ = key;
    wanted_ = false;
    isChunked_ = false;
    essence_->reset();
    if (firstKey_ && *firstKey_ != key) {
        return;
    }
    const bool endsEditUnit = firstKey_ && inEditUnit();
    firstKey_ = key;
    if (structureHandler_ != nullptr) {
        editUnitOpen_ = false; // a handler that throws isn't told again
        if (endsEditUnit) {
            structureHandler_->endEditUnit();
        }
        editUnitOpen_ = true;
        structureHandler_->startEditUnit();
    }
}

// Essence elements

bool MXFGCSplitter::startIndividualItem(const KLVKey& key, std::uint64_t length,
                                        std::uint8_t** buffer) {
    if (key == klvutil::fillItemKey) {
        return false;
    }
    util::check(state_ != State::Idle, "expected individual item");
    startElement(key);
    category_ = isEssenceElement(key) ? categoryOf(key) : std::nullopt;
    if (!category_) {
        report(errorHandler_, faults::invalidEssenceElement, describe(key));
        return false;
    }
    enterEssence(key);
    wanted_ = essenceHandler_ != nullptr && offerEssence(key, length);
    if (wanted_ && !isChunked_) {
        *buffer = essence_->whole();
    }
    return wanted_;
}

void MXFGCSplitter::enterEssence(const KLVKey& key) {
    if (state_ == State::Started) {
        state_ = State::EssenceOnly;
        onlyCategory_ = *category_;
    } else if (state_ == State::InSystem) {
        state_ = State::InEssence;
    } else if (state_ == State::EssenceOnly && *category_ != onlyCategory_) {
        state_ = State::InEssence;
        if (!allowsMixedEssence()) {
            report(errorHandler_, faults::unexpectedEssenceElement, describe(key));
        }
    }
}

bool MXFGCSplitter::offerEssence(const KLVKey& key, std::uint64_t length) {
    if (toldForm_ != form_) {
        toldForm_ = form_;
        essenceHandler_->essenceLengthForm(form_);
    }
    std::uint8_t* theirs = nullptr;
    if (!essenceHandler_->wantsEssence(key, length, &theirs)) {
        return false;
    }
    if (theirs != nullptr) {
        essence_->use(theirs, length);
        return true;
    }
    if (length <= mxfgc::longestWholeElement) {
        essence_->useOwn(length);
        return true;
    }
    isChunked_ = chunkedHandler_ != nullptr && chunkedHandler_->wantsChunkedEssence(key, length);
    if (!isChunked_) {
        report(errorHandler_, faults::unsupportedElementLength, "0x" + util::hexNumber(length));
        tellEssence(key, nullptr, length);
    }
    return isChunked_;
}

void MXFGCSplitter::tellEssence(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) {
    using Element =
        void (MXFGCEssenceHandler::*)(const KLVKey&, const std::uint8_t*, std::uint64_t);
    constexpr Element elements[categories] = {
        &MXFGCEssenceHandler::pictureElement,
        &MXFGCEssenceHandler::soundElement,
        &MXFGCEssenceHandler::dataElement,
        &MXFGCEssenceHandler::compoundElement,
    };
    const std::optional<Category> category = key == key_ ? category_ : categoryOf(key);
    util::check(category.has_value(), "valid GC essence element key");
    if (essenceHandler_ != nullptr) {
        (essenceHandler_->*elements[*category])(key, data, length);
    }
}

void MXFGCSplitter::endIndividualItem(const KLVKey& key) {
    if (key == klvutil::fillItemKey) {
        return;
    }
    util::check(state_ != State::Idle, "expected individual item");
    if (!inEssence() || !wanted_) {
        return;
    }
    if (isChunked_) {
        require(chunkedHandler_, "has chunked essence handler").endChunkedEssence(key);
    } else {
        tellEssence(key, essence_->data(), essence_->size());
    }
}

// System elements

bool MXFGCSplitter::startSystemElement(const KLVKey& key, std::uint64_t length,
                                       const char* expected) {
    util::check(state_ != State::Idle, expected);
    startElement(key);
    system_.start(length);
    if (!isSystemElement(key)) {
        report(errorHandler_, faults::invalidSystemElement, describe(key));
        return false;
    }
    if (state_ == State::EssenceOnly) {
        report(errorHandler_, faults::unexpectedSystemElement, describe(key));
    }
    state_ = State::InSystem;
    wanted_ = systemHandler_ != nullptr && systemHandler_->wantsSystem(key);
    if (length > mxfgc::longestWholeElement) {
        refuseSystemElement();
    }
    return wanted_;
}

/// It isn't told, as it is too long to be gathered, or lies about its items.
void MXFGCSplitter::refuseSystemElement() {
    if (wanted_) {
        wanted_ = false;
        report(errorHandler_, faults::invalidSystemElement, describe(key_));
    }
}

bool MXFGCSplitter::endSystemElement(const char* expected) const {
    util::check(state_ != State::Idle, expected);
    return state_ == State::InSystem && wanted_ && systemHandler_ != nullptr;
}

bool MXFGCSplitter::startSystemItem(std::uint64_t length, const char* expected) {
    util::check(state_ == State::InSystem, expected);
    if (!system_.hasRoomFor(length)) {
        refuseSystemElement();
    }
    return wanted_;
}

bool MXFGCSplitter::startLocalSet(const KLVKey& key, std::uint64_t length, TagType, LengthType) {
    return startSystemElement(key, length, "expected local set");
}

void MXFGCSplitter::endLocalSet(const KLVKey& key) {
    if (endSystemElement("expected local set")) {
        systemHandler_->systemLocalSet(key, system_.localItems());
    }
}

bool MXFGCSplitter::startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t**) {
    const bool wanted = startSystemItem(length, "expected local item");
    if (wanted) {
        system_.startLocalItem(tag, length);
    }
    return wanted;
}

void MXFGCSplitter::endLocalItem(std::uint32_t) {
    util::check(state_ == State::InSystem, "expected local item");
}

bool MXFGCSplitter::startFixedLengthPack(const KLVKey& key, std::uint64_t length, std::uint8_t**) {
    const bool wanted = startSystemElement(key, length, "expected fixed length pack");
    if (wanted) {
        system_.startPackValue();
    }
    return wanted;
}

void MXFGCSplitter::endFixedLengthPack(const KLVKey& key) {
    if (endSystemElement("expected fixed length pack")) {
        systemHandler_->systemFixedLengthPack(key, system_.packValue());
    }
}

bool MXFGCSplitter::startVariableLengthPack(const KLVKey& key, std::uint64_t length, LengthType) {
    return startSystemElement(key, length, "expected variable length pack");
}

void MXFGCSplitter::endVariableLengthPack(const KLVKey& key) {
    if (endSystemElement("expected variable length pack")) {
        systemHandler_->systemVariableLengthPack(key, system_.packItems());
    }
}

bool MXFGCSplitter::startVariableLengthItem(std::uint64_t length, std::uint8_t**) {
    const bool wanted = startSystemItem(length, "expected variable length item");
    if (wanted) {
        system_.startPackItem(length);
    }
    return wanted;
}

void MXFGCSplitter::endVariableLengthItem() {
    util::check(state_ == State::InSystem, "expected variable length item");
}

void MXFGCSplitter::value(const std::uint8_t* data, std::uint64_t size) {
    util::check(inEditUnit(), "expected value");
    if (state_ == State::InSystem) {
        system_.append(data, size);
    } else if (isChunked_) {
        tellEssence(key_, data, size);
    } else {
        essence_->append(data, size);
    }
}

// Everything else has no place here

bool MXFGCSplitter::refuse(const KLVKey& key) {
    report(errorHandler_, faults::invalidElement, describe(key));
    return false;
}

bool MXFGCSplitter::startLabel(const KLVKey& key) {
    return refuse(key);
}

bool MXFGCSplitter::startUniversalSet(const KLVKey& key, std::uint64_t) {
    return refuse(key);
}

bool MXFGCSplitter::startWrapper(const KLVKey& key, std::uint64_t, bool, std::uint8_t**) {
    return refuse(key);
}

} // namespace vexa_toolkit
