#include "index/MXFIndexParser.h"

#include "index/faults.h"
#include "index/indexSegment.h"

#include <vexa/index/MXFIndexHandler.h>

inline namespace vexa_toolkit {

namespace faults = mxfindex::faults;

namespace {

void checkConsistency(const MXFIndexTableSegment& segment, ErrorHandler* errorHandler) {
    const auto& entries = segment.indexEntryArray;
    const bool constantSize = segment.editUnitByteCount != 0;
    if (segment.indexDuration == 0 && !constantSize) {
        klvutil::report(errorHandler, faults::inconsistentDuration);
    }
    if (!entries.empty() && static_cast<std::int64_t>(entries.size()) != segment.indexDuration) {
        klvutil::report(errorHandler, faults::inconsistentEntryCount);
    }
    if (constantSize && segment.indexStartPosition != 0) {
        klvutil::report(errorHandler, faults::inconsistentStartPosition);
    }
    if (constantSize != entries.empty()) {
        klvutil::report(errorHandler, faults::inconsistentEntries);
    }
    mxfindex::checkEntries(segment);
}

} // namespace

MXFIndexParser::MXFIndexParser(MXFIndexHandler& handler) : handler_(handler) {}

MXFIndexParser::~MXFIndexParser() = default;

const metadata::TagToKey& MXFIndexParser::getPrimer() const {
    static const metadata::TagToKey primer(mxfindex::segmentPrimer());
    return primer;
}

bool MXFIndexParser::wantsPrimedSet(const KLVKey& key) {
    return isIndexTableSegment(key);
}

bool MXFIndexParser::isIndexTableSegment(const KLVKey& key) {
    return key == mxfindex::segmentKey;
}

void MXFIndexParser::primedSet(const MXFPrimedSet& set) {
    const MXFIndexTableSegment segment = mxfindex::decodeSegment(set, errorHandler());
    checkConsistency(segment, errorHandler());
    handler_.indexTableSegment(segment);
}

void MXFIndexParser::startStream(bool) {
    start(State::BetweenSets);
    handler_.startIndexTable();
}

void MXFIndexParser::endStream(bool aborted) {
    MXFPrimedSetParser::endStream(aborted);
    handler_.endIndexTable();
}

} // namespace vexa_toolkit
