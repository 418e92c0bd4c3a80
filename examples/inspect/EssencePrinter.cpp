#include "EssencePrinter.h"

#include "../support/counted.h"
#include "values.h"

#include <algorithm>
#include <iostream>

namespace {

/// By the item type, as SMPTE 379M has it.
const char* kindOf(const KLVKey& key) {
    switch (key[12]) {
    case 0x05:
    case 0x15:
        return "picture";
    case 0x06:
    case 0x16:
        return "sound";
    case 0x07:
    case 0x17:
        return "data";
    case 0x18:
        return "compound";
    default:
        return "essence";
    }
}

void printTrack(const KLVKey& key, const EssenceStream::Track& track) {
    std::cout << "  track " << key << ' ' << kindOf(key) << ", "
              << counted(track.elements, "element") << ", " << counted(track.bytes, "byte")
              << ", length forms";
    for (const std::uint8_t form : track.lengthForms) {
        std::cout << ' ' << values::hexadecimal(form).substr(6);
    }
    std::cout << '\n';
}

void printEditUnits(const EssenceStream& stream) {
    std::cout << counted(stream.editUnits, "edit unit");
    if (stream.editUnits > 0) {
        std::cout << " of ";
        if (stream.smallestEditUnit != stream.largestEditUnit) {
            std::cout << stream.smallestEditUnit << " to ";
        }
        std::cout << counted(stream.largestEditUnit, "byte") << " of essence";
    }
    std::cout << '\n';
}

void printSystemItems(const EssenceStream& stream) {
    std::cout << "  system items " << stream.systemItems;
    if (values::isTimecode(stream.firstUserStamp) || values::isTimecode(stream.lastUserStamp)) {
        std::cout << ", user stamps " << values::text(stream.firstUserStamp) << " to "
                  << values::text(stream.lastUserStamp);
    }
    std::cout << ", continuity "
              << (stream.continuityBreaks == 0
                      ? "unbroken"
                      : "broken " + counted(stream.continuityBreaks, "time"))
              << '\n';
}

/// Of a pipe, what lies behind the last key that was read isn't known.
void printBreak(const EssenceStream& stream, bool isFile) {
    if (stream.brokenEditUnit) {
        std::cout << "  broke off in edit unit " << *stream.brokenEditUnit << '\n';
    }
    if (stream.cutElement) {
        std::cout << "  " << (isFile ? "" : "perhaps ") << "cut short: element "
                  << stream.cutElement->key << ", announced "
                  << counted(stream.cutElement->length, "byte") << '\n';
    }
}

} // namespace

void EssencePrinter::startEditUnit() {
    editUnitBytes_ = 0;
    editUnitElements_ = 0;
}

/// Comes after a fatal error, too.
void EssencePrinter::endEditUnit() {
    endElement();
    EssenceStream& sums = stream();
    if (reports_->hasFatalError()) {
        sums.brokenEditUnit = sums.editUnits;
        return;
    }
    if (eachEditUnit_) {
        std::cout << "edit-unit " << sums.editUnits << " bodySID " << bodySID_ << ": "
                  << counted(editUnitElements_, "essence element") << ", "
                  << counted(editUnitBytes_, "byte") << '\n';
    }
    ++sums.editUnits;
    sums.smallestEditUnit = std::min(sums.smallestEditUnit, editUnitBytes_);
    sums.largestEditUnit = std::max(sums.largestEditUnit, editUnitBytes_);
    onEditUnit_();
}

bool EssencePrinter::wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t**) {
    endElement();
    element_ = {key, length, lengthForm_, reports_->position()};
    return false;
}

/// A read that breaks off may do so behind the element. Of a pipe, only what was read there tells.
bool EssencePrinter::isWhole(const EssenceStream::Element& element) const {
    if (!reports_->hasFatalError()) {
        return true;
    }
    const std::int64_t end =
        fileSize_ ? static_cast<std::int64_t>(*fileSize_) : reports_->position() - 1;
    return element.position >= 0 && element.position <= end &&
           element.length <= static_cast<std::uint64_t>(end - element.position);
}

void EssencePrinter::endElement() {
    if (!element_) {
        return;
    }
    if (isWhole(*element_)) {
        EssenceStream::Track& track = stream().tracks[element_->key];
        ++track.elements;
        track.bytes += element_->length;
        track.lengthForms.insert(element_->lengthForm);
        editUnitBytes_ += element_->length;
        ++editUnitElements_;
    } else {
        stream().cutElement = element_;
    }
    element_.reset();
}

void EssencePrinter::systemMetadataPack(const MXFSDTICPSystemMetadata& pack) {
    EssenceStream& sums = stream();
    if (sums.systemItems++ == 0) {
        sums.firstUserStamp = pack.userStamp;
    } else if (pack.continuityCount != static_cast<std::uint16_t>(sums.lastContinuityCount + 1)) {
        ++sums.continuityBreaks;
    }
    sums.lastUserStamp = pack.userStamp;
    sums.lastContinuityCount = pack.continuityCount;
}

void EssencePrinter::print() const {
    for (const auto& [bodySID, sums] : streams_) {
        std::cout << "essence bodySID " << bodySID << ": ";
        printEditUnits(sums);
        for (const auto& [key, track] : sums.tracks) {
            printTrack(key, track);
        }
        if (sums.systemItems > 0) {
            printSystemItems(sums);
        }
        printBreak(sums, fileSize_.has_value());
    }
}
