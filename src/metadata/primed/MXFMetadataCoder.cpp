#include "klv/KLVFiller.h"
#include "klv/KLVMonitor.h"
#include "klv/berLength.h"
#include "klv/bigEndian.h"
#include "klv/writeElements.h"
#include "metadata/primed/keys.h"
#include "metadata/primed/primer.h"
#include "metadata/primed/primerLookup.h"
#include "metadata/primed/writePrimedSet.h"
#include "util/attempt.h"
#include "util/check.h"

#include <vexa/metadata/MXFMetadataCoder.h>

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

struct MXFMetadataCoder::Region {
    enum class State { Idle, Started, PrimerWritten };

    explicit Region(KLVHandler& handler) : monitor(handler), filler(monitor) {}

    void clearFill() { filler.setFill(KLVFiller::Align, 0, 0); }

    void start() {
        filler.setLocator(&monitor.getLocator());
        filler.startStream(true);
        const auto begin = [this] {
            filler.berLengthForm(klvutil::defaultBERForm);
            clearFill();
            filler.startFilledItem();
        };
        util::attempt(begin, [this] { filler.endStream(true); });
        state = State::Started;
    }

    void end() {
        state = State::Idle;
        clearFill();
        util::attempt([this] { filler.endFilledItem(); }, [this] { filler.endStream(true); });
        filler.endStream(false);
    }

    void endPrimerRegion(const MXFPrimedSet& preface) {
        if (isAlignedVersion(preface)) {
            filler.setFill(KLVFiller::Align, primerAlignment, 0);
        }
        filler.endFilledItem();
        clearFill();
        filler.startFilledItem();
    }

    KLVMonitor monitor;
    KLVFiller filler;
    std::uint32_t primerAlignment = 512;
    metadata::KeyToTag keyToTag;
    State state = State::Idle;
};

MXFMetadataCoder::MXFMetadataCoder(KLVHandler& handler)
    : region_(std::make_unique<Region>(handler)) {}

MXFMetadataCoder::~MXFMetadataCoder() = default;

void MXFMetadataCoder::setPrimerAlignment(std::uint32_t alignment) {
    region_->primerAlignment = alignment;
}

void MXFMetadataCoder::startMetadata() {
    util::check(region_->state == Region::State::Idle, "before start");
    region_->start();
}

void MXFMetadataCoder::endMetadata() {
    util::check(region_->state != Region::State::Idle, "in filled item");
    region_->end();
}

void MXFMetadataCoder::primer(const MXFPrimer& primer) {
    util::check(region_->state == Region::State::Started, "before primer");
    region_->state = Region::State::PrimerWritten;
    region_->keyToTag = metadata::KeyToTag(primer);
    metadata::TagToKey tagToKey;
    for (const MXFPrimerEntry& entry : primer) {
        util::check(tagToKey.insert(entry) == entry.key, "consistent primer tag -> key");
        util::check(region_->keyToTag.find(entry.key) == entry.tag, "consistent primer key -> tag");
    }
    klvutil::writeFixedLengthPack(region_->filler, metadata::primerPackKey,
                                  metadata::encodePrimer(primer));
}

bool MXFMetadataCoder::wantsPrimedSet(const KLVKey&) {
    return true;
}

void MXFMetadataCoder::primedSet(const MXFPrimedSet& set) {
    util::check(region_->state == Region::State::PrimerWritten, "before primed set");
    if (set.key == metadata::keys::preface) {
        region_->endPrimerRegion(set);
    }
    metadata::writePrimedSet(region_->filler, region_->keyToTag, set, klvutil::defaultBERForm);
}

} // namespace vexa_toolkit
