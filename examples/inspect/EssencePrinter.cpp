#include "EssencePrinter.h"

#include "values.h"

#include <algorithm>
#include <iostream>

namespace {

/// By the item type, as SMPTE 379M has it.
std::string kindOf(const KLVKey& key) {
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

void printTrack(const std::string& key, const EssenceStream::Track& track) {
    std::cout << "  track " << key << ' ' << track.kind << ", " << track.elements << " elements, "
              << track.bytes << " bytes, length forms";
    for (const std::uint8_t form : track.lengthForms) {
        std::cout << ' ' << values::hexadecimal(form).substr(6);
    }
    std::cout << '\n';
}

} // namespace

void EssencePrinter::startEditUnit() {
    editUnitBytes_ = 0;
    editUnitElements_ = 0;
}

void EssencePrinter::endEditUnit() {
    EssenceStream& counted = stream();
    if (eachEditUnit_) {
        std::cout << "edit-unit " << counted.editUnits << " bodySID " << bodySID_ << ": "
                  << editUnitElements_ << " essence elements, " << editUnitBytes_ << " bytes\n";
    }
    ++counted.editUnits;
    counted.smallestEditUnit = std::min(counted.smallestEditUnit, editUnitBytes_);
    counted.largestEditUnit = std::max(counted.largestEditUnit, editUnitBytes_);
    onEditUnit_();
}

bool EssencePrinter::wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t**) {
    EssenceStream::Track& track = stream().tracks[values::digits(key)];
    track.kind = kindOf(key);
    ++track.elements;
    track.bytes += length;
    track.lengthForms.insert(lengthForm_);
    editUnitBytes_ += length;
    ++editUnitElements_;
    return false;
}

void EssencePrinter::systemMetadataPack(const MXFSDTICPSystemMetadata& pack) {
    EssenceStream& counted = stream();
    if (counted.systemItems++ == 0) {
        counted.firstUserStamp = pack.userStamp;
    } else if (pack.continuityCount !=
               static_cast<std::uint16_t>(counted.lastContinuityCount + 1)) {
        ++counted.continuityBreaks;
    }
    counted.lastUserStamp = pack.userStamp;
    counted.lastContinuityCount = pack.continuityCount;
}

void EssencePrinter::print() const {
    for (const auto& [bodySID, counted] : streams_) {
        std::cout << "essence bodySID " << bodySID << ": " << counted.editUnits << " edit units";
        if (counted.editUnits > 0) {
            std::cout << " of " << counted.smallestEditUnit << " to " << counted.largestEditUnit
                      << " bytes of essence";
        }
        std::cout << '\n';
        for (const auto& [key, track] : counted.tracks) {
            printTrack(key, track);
        }
        if (counted.systemItems > 0) {
            std::cout << "  system items " << counted.systemItems << ", user stamps "
                      << values::text(counted.firstUserStamp) << " to "
                      << values::text(counted.lastUserStamp) << ", continuity "
                      << (counted.continuityBreaks == 0
                              ? "unbroken"
                              : "broken " + std::to_string(counted.continuityBreaks) + " times")
                      << '\n';
        }
    }
}
