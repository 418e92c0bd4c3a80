#include "metadata/primed/MXFMetadataCoder.h"

#include "klv/berLength.h"
#include "klv/bigEndian.h"
#include "klv/writeElements.h"
#include "metadata/primed/keys.h"
#include "metadata/primed/primer.h"
#include "metadata/primed/writePrimedSet.h"
#include "util/check.h"

inline namespace vexa_toolkit {

namespace {

constexpr std::uint16_t firstAlignedVersion = 0x0103;

bool isAlignedVersion(const MXFPrimedSet& preface) {
    const auto version = preface.properties.find(metadata::keys::prefaceVersion);
    if (version == preface.properties.end() || version->second.size() != sizeof(std::uint16_t)) {
        return false;
    }
    util::byte_reader in(version->second);
    return klvutil::readInteger<std::uint16_t>(in) >= firstAlignedVersion;
}

} // namespace

MXFMetadataCoder::MXFMetadataCoder(KLVHandler& handler) : monitor_(handler), filler_(monitor_) {}

MXFMetadataCoder::~MXFMetadataCoder() = default;

void MXFMetadataCoder::setPrimerAlignment(std::uint32_t alignment) {
    primerAlignment_ = alignment;
}

void MXFMetadataCoder::clearFill() {
    filler_.setFill(KLVFiller::Align, 0, 0);
}

void MXFMetadataCoder::startMetadata() {
    util::check(state_ == State::Idle, "before start");
    state_ = State::Started;
    filler_.setLocator(&monitor_.getLocator());
    filler_.startStream(true);
    filler_.berLengthForm(klvutil::defaultBERForm);
    clearFill();
    filler_.startFilledItem();
}

void MXFMetadataCoder::endMetadata() {
    clearFill();
    filler_.endFilledItem();
    state_ = State::Idle;
    filler_.endStream(false);
}

void MXFMetadataCoder::primer(const MXFPrimer& primer) {
    util::check(state_ == State::Started, "before primer");
    state_ = State::PrimerWritten;
    keyToTag_ = metadata::KeyToTag(primer);
    metadata::TagToKey tagToKey;
    for (const MXFPrimerEntry& entry : primer) {
        util::check(tagToKey.insert(entry) == entry.key, "consistent primer tag -> key");
        util::check(keyToTag_.find(entry.key) == entry.tag, "consistent primer key -> tag");
    }
    klvutil::writeFixedLengthPack(filler_, metadata::primerPackKey, metadata::encodePrimer(primer));
}

bool MXFMetadataCoder::wantsPrimedSet(const KLVKey&) {
    return true;
}

void MXFMetadataCoder::primedSet(const MXFPrimedSet& set) {
    util::check(state_ == State::PrimerWritten, "before primed set");
    if (set.key == metadata::keys::preface) {
        endPrimerRegion(set);
    }
    metadata::writePrimedSet(filler_, keyToTag_, set, klvutil::defaultBERForm);
}

void MXFMetadataCoder::endPrimerRegion(const MXFPrimedSet& preface) {
    if (isAlignedVersion(preface)) {
        filler_.setFill(KLVFiller::Align, primerAlignment_, 0);
    }
    filler_.endFilledItem();
    clearFill();
    filler_.startFilledItem();
}

} // namespace vexa_toolkit
