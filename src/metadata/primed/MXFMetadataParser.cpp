#include "metadata/primed/MXFMetadataParser.h"

#include "klv/berLength.h"
#include "klv/gathering.h"
#include "klv/smpte.h"
#include "metadata/faults.h"
#include "metadata/primed/primer.h"

#include <vexa/metadata/MXFMetadataHandler.h>
#include <vexa/util/assertion_failure.h>

#include <utility>

inline namespace vexa_toolkit {

using klvutil::report;
using metadata::describe;
namespace faults = metadata::faults;

namespace {

/// Longer primers are refused: all tags that there are take 1.2 MB.
constexpr std::uint64_t longestPrimer = 4 * 1024 * 1024;

} // namespace

MXFMetadataParser::MXFMetadataParser(MXFMetadataHandler& handler,
                                     const metadata::PrimerTable& standardPrimer)
    : handler_(handler), standard_(standardPrimer) {}

MXFMetadataParser::~MXFMetadataParser() = default;

const metadata::TagToKey& MXFMetadataParser::getPrimer() const {
    return tagToKey_;
}

bool MXFMetadataParser::wantsPrimedSet(const KLVKey& key) {
    return handler_.wantsPrimedSet(key);
}

void MXFMetadataParser::primedSet(const MXFPrimedSet& set) {
    handler_.primedSet(set);
}

void MXFMetadataParser::startStream(bool) {
    start(State::BeforePrimer);
    newForm_.reset();
    primerBuffer_.clear();
    tagToKey_.clear();
    handler_.startMetadata();
}

void MXFMetadataParser::endStream(bool aborted) {
    MXFPrimedSetParser::endStream(aborted);
    handler_.endMetadata();
}

void MXFMetadataParser::berLengthForm(std::uint8_t form) {
    newForm_ = form;
}

bool MXFMetadataParser::startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                                      LengthType lengthType) {
    const std::optional<std::uint8_t> form = std::exchange(newForm_, std::nullopt);
    if (form && *form != klvutil::defaultBERForm) {
        report(errorHandler(), faults::nonStandardBERLength, klvutil::describe(*form));
    }
    if (tagType == klvutil::twoOctetTags && state() == State::BeforePrimer) {
        report(errorHandler(), faults::setBeforePrimer, klvutil::describe(key));
    }
    return MXFPrimedSetParser::startLocalSet(key, length, tagType, lengthType);
}

bool MXFMetadataParser::startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                                             std::uint8_t**) {
    if (state() != State::BeforePrimer || key != metadata::primerPackKey) {
        return false;
    }
    setState(State::InPrimer);
    if (length > longestPrimer) {
        return false; // no value: it won't decode
    }
    klvutil::startGathering(primerBuffer_, length);
    return true;
}

void MXFMetadataParser::value(const std::uint8_t* data, std::uint64_t size) {
    if (state() == State::InPrimer) {
        klvutil::gather(primerBuffer_, data, size);
    } else {
        MXFPrimedSetParser::value(data, size);
    }
}

void MXFMetadataParser::endFixedLengthPack(const KLVKey& key) {
    if (state() != State::InPrimer || key != metadata::primerPackKey) {
        return;
    }
    const MXFPrimer primer = takePrimer();
    compareWithStandard(primer);
    buildLookup(primer);
    setState(State::BetweenSets);
    handler_.primer(primer);
}

MXFPrimer MXFMetadataParser::takePrimer() {
    const std::vector<std::uint8_t> value = std::exchange(primerBuffer_, {});
    try {
        return metadata::decodePrimer(value);
    } catch (const util::assertion_failure& failure) {
        report(errorHandler(), faults::invalidPrimer, failure.what());
        return standard_.rows();
    }
}

void MXFMetadataParser::compareWithStandard(const MXFPrimer& primer) const {
    for (const MXFPrimerEntry& entry : primer) {
        const KLVKey* const key = standard_.findKey(entry.tag);
        if (key != nullptr && *key != entry.key) {
            report(errorHandler(), faults::nonStandardPrimerKey, describe(entry));
        }
        const std::optional<std::uint16_t> tag = standard_.findTag(entry.key);
        if (tag && *tag != entry.tag) {
            report(errorHandler(), faults::nonStandardPrimerTag, describe(entry));
        }
    }
}

/// Of tags and keys that stand there twice, the first row counts.
void MXFMetadataParser::buildLookup(const MXFPrimer& primer) {
    const metadata::KeyToTag keyToTag(primer);
    for (const MXFPrimerEntry& entry : primer) {
        if (tagToKey_.insert(entry) != entry.key) {
            report(errorHandler(), faults::inconsistentPrimerKey, describe(entry));
        }
        if (keyToTag.find(entry.key) != entry.tag) {
            report(errorHandler(), faults::inconsistentPrimerTag, describe(entry));
        }
    }
}

} // namespace vexa_toolkit
