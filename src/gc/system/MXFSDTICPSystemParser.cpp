#include "gc/system/MXFSDTICPSystemParser.h"

#include "gc/system/faults.h"
#include "util/check.h"

#include <cstddef>
#include <optional>

inline namespace vexa_toolkit {

using gcsystem::SystemSet;
using klvutil::Fault;
namespace faults = gcsystem::faults;

namespace {

/// A text may hold a key, of which a file can have any number. Beyond so many texts, those with a
/// detail are always new.
constexpr std::size_t mostReportedTexts = 1000;

struct MetadataSet {
    void (MXFSDTICPSystemHandler::*tell)(const MXFSDTICPSystemHandler::Items&);
    Fault extra;
    Fault incorrectCount;
};

constexpr MetadataSet metadataSets[] = {
    {&MXFSDTICPSystemHandler::packageMetadata, faults::extraPackage, faults::incorrectPackageCount},
    {&MXFSDTICPSystemHandler::pictureMetadata, faults::extraPicture, faults::incorrectPictureCount},
    {&MXFSDTICPSystemHandler::soundMetadata, faults::extraSound, faults::incorrectSoundCount},
    {&MXFSDTICPSystemHandler::dataMetadata, faults::extraData, faults::incorrectDataCount},
};

} // namespace

MXFSDTICPSystemParser::MXFSDTICPSystemParser(MXFSDTICPSystemHandler& handler) : handler_(handler) {}

MXFSDTICPSystemParser::~MXFSDTICPSystemParser() = default;

bool MXFSDTICPSystemParser::wantsSystem(const KLVKey& key) {
    if (key == gcsystem::systemMetadataKey || gcsystem::isSystemSet(key)) {
        return true;
    }
    report(faults::invalidElement, klvutil::describe(key));
    return false;
}

void MXFSDTICPSystemParser::systemFixedLengthPack(const KLVKey& key, const Bytes& value) {
    util::check(key == gcsystem::systemMetadataKey, "valid SDTI-CP fixed length pack");
    if (state_ == State::ControlExpected) {
        report(faults::missingControl);
    }
    seen_.fill(false);
    state_ = State::NoControlExpected;
    MXFSDTICPSystemMetadata pack;
    try {
        pack = gcsystem::decodeSystemMetadata(value);
    } catch (const util::assertion_failure& failure) {
        report(faults::invalidPack, failure.what());
        return;
    }
    if ((pack.systemMetadataBitmap & 0x01) != 0) {
        state_ = State::ControlExpected;
    }
    handler_.systemMetadataPack(pack);
}

void MXFSDTICPSystemParser::systemLocalSet(const KLVKey& key, const LocalItems& items) {
    if (state_ == State::Initial) {
        report(faults::missingPack);
        seen_.fill(false);
        state_ = State::NoControlExpected;
    }
    const std::optional<SystemSet> kind = gcsystem::kindOf(key);
    if (!kind) {
        report(faults::invalidElement, klvutil::describe(key));
    } else if (*kind == SystemSet::Control) {
        controlData(items);
    } else {
        metadataSet(*kind, key[gcsystem::countByte], items);
    }
}

void MXFSDTICPSystemParser::systemVariableLengthPack(const KLVKey&, const PackItems&) {
    util::check(false, "valid SDTI-CP variable length pack");
}

void MXFSDTICPSystemParser::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

void MXFSDTICPSystemParser::metadataSet(SystemSet kind, std::uint8_t announcedCount,
                                        const LocalItems& items) {
    const std::size_t place =
        static_cast<std::size_t>(kind) - static_cast<std::size_t>(SystemSet::Package);
    const MetadataSet& set = metadataSets[place];
    if (seen_[place]) {
        report(set.extra);
    }
    if (announcedCount != items.size()) {
        report(set.incorrectCount);
    }
    seen_[place] = true;
    (handler_.*set.tell)(items);
}

void MXFSDTICPSystemParser::controlData(const LocalItems& items) {
    if (state_ == State::NoControlExpected) {
        report(faults::unexpectedControl);
    }
    if (items.size() != 1) {
        report(faults::incorrectControlCount);
    }
    state_ = State::Initial;
    if (!items.empty()) {
        handler_.controlData(items[0].first, items[0].second);
    }
}

void MXFSDTICPSystemParser::report(const Fault& fault, const std::string& detail) {
    if (errorHandler_ != nullptr && isNew(fault.text + detail, !detail.empty())) {
        klvutil::report(errorHandler_, fault, detail);
    }
}

bool MXFSDTICPSystemParser::isNew(const std::string& text, bool hasDetail) {
    return hasDetail && reported_.size() >= mostReportedTexts ? reported_.count(text) == 0
                                                              : reported_.insert(text).second;
}

} // namespace vexa_toolkit
