#include "mxf/MXFStructureValidator.h"

#include "klv/KLVKeyMask.h"
#include "klv/keyLiteral.h"
#include "klv/positionOf.h"
#include "mxf/faults.h"
#include "util/check.h"
#include "util/quietly.h"

#include <vexa/mxf/MXFPartitionKey.h>

#include <string>
#include <utility>

inline namespace vexa_toolkit {

using klvutil::operator""_key;
using klvutil::report;
namespace faults = mxf::faults;

namespace {

/// The MXF versions that are implemented: 1.2 and 1.3.
constexpr std::uint16_t implementedMajor = 1;
constexpr std::uint16_t firstMinor = 2;
constexpr std::uint16_t lastMinor = 3;

std::string versionText(std::uint16_t major, std::uint16_t minor) {
    return std::to_string(major) + "." + std::to_string(minor);
}

/// The labels of OP1a to OP3c: item complexity in byte 12, package complexity in byte 13.
bool isGeneralizedPattern(const KLVKey& label) {
    static constexpr KLVKeyMask prefix("060E2B34.04010100.0D010201.00000000"_key, 12);
    return prefix.matches(label) && label[12] >= 1 && label[12] <= 3 && label[13] >= 1 &&
           label[13] <= 3;
}

} // namespace

MXFStructureValidator::MXFStructureValidator(MXFStructureHandler& next) : next_(&next) {}

MXFStructureValidator::~MXFStructureValidator() = default;

void MXFStructureValidator::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

void MXFStructureValidator::setLocator(const Locator* locator) {
    locator_ = locator;
}

void MXFStructureValidator::warnIf(bool condition, const klvutil::Fault& fault) {
    if (condition) {
        report(errorHandler_, fault);
    }
}

void MXFStructureValidator::runIn(std::uint64_t length) {
    util::check(state_ == State::Idle, "before run-in");
    state_ = State::AfterRunIn;
    runIn_ = length;
    next_->runIn(length);
}

void MXFStructureValidator::startStructure() {
    util::check(state_ == State::Idle || state_ == State::AfterRunIn, "before start");
    if (state_ == State::Idle) {
        runIn_ = 0;
    }
    state_ = State::Started;
    const std::uint64_t position = locator_ != nullptr ? klvutil::positionOf(*locator_) : 0;
    util::check(runIn_ == position, "correct runIn");
    seen_.clear();
    footerOffset_ = 0;
    headerHasFooter_ = false;
    hasRandomIndex_ = false;
    structureTold_ = true;
    next_->startStructure();
}

void MXFStructureValidator::startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                                           std::uint64_t packByteCount) {
    util::check(MXFPartitionKey::isPartitionKey(key), "is partition");
    checkOrder(key);
    state_ = MXFPartitionKey::isFooter(key) ? State::InFooter : State::InPartition;
    if (runIn_ != 0 && isGeneralizedPattern(pack.operationalPattern)) {
        report(errorHandler_, faults::generalizedPatternWithRunIn);
    }
    checkVersion(pack);
    if (locator_ != nullptr) {
        checkPositions(key, pack, packByteCount);
    }
    checkFields(key, pack);
    if (MXFPartitionKey::isHeader(key)) {
        headerHasFooter_ = pack.footerPartition != 0;
    }
    partitionTold_ = true;
    next_->startPartition(key, pack, packByteCount);
}

void MXFStructureValidator::checkOrder(const KLVKey& key) {
    switch (state_) {
    case State::Started:
        if (!MXFPartitionKey::isHeader(key)) {
            report(errorHandler_, faults::missingHeader);
        }
        break;
    case State::AfterPartition:
        if (MXFPartitionKey::isHeader(key)) {
            report(errorHandler_, faults::unexpectedHeader);
        }
        break;
    case State::AfterFooter:
        report(errorHandler_, faults::partitionAfterFooter);
        break;
    case State::AfterRandomIndex:
        report(errorHandler_, faults::partitionAfterRandomIndex);
        break;
    default:
        util::check(false, "before partition");
    }
}

void MXFStructureValidator::checkVersion(const MXFPartitionPack& pack) {
    const std::uint16_t major = pack.majorVersion;
    const std::uint16_t minor = pack.minorVersion;
    const auto detail = [&] {
        return versionText(major, minor) + " (implemented " +
               versionText(implementedMajor, firstMinor) + "-" +
               versionText(implementedMajor, lastMinor) + ")";
    };
    if (major > 255 || minor > 255) {
        report(errorHandler_, faults::invalidVersion, detail());
    } else if (major != implementedMajor) {
        report(errorHandler_, faults::incompatibleVersion, detail());
    } else if (minor > lastMinor) {
        report(errorHandler_, faults::laterVersion, detail());
    } else if (minor < firstMinor) {
        report(errorHandler_, faults::earlierVersion, detail());
    }
}

void MXFStructureValidator::checkPositions(const KLVKey& key, const MXFPartitionPack& pack,
                                           std::uint64_t packByteCount) {
    const auto position = klvutil::positionOf(*locator_);
    const std::uint64_t thisPartition = position - packByteCount - runIn_;
    const std::uint64_t previousPartition = seen_.empty() ? 0 : seen_.back().byteOffset;
    warnIf(pack.thisPartition != thisPartition, faults::incorrectThisPartition);
    warnIf(pack.previousPartition != previousPartition, faults::incorrectPreviousPartition);
    if (MXFPartitionKey::isFooter(key)) {
        warnIf(pack.footerPartition != thisPartition, faults::incorrectFooterPartition);
        warnIf(footerOffset_ != 0 && footerOffset_ != thisPartition,
               faults::incorrectPreviousFooter);
    } else if (pack.footerPartition != 0) {
        warnIf(footerOffset_ != 0 && footerOffset_ != pack.footerPartition,
               faults::inconsistentFooter);
        footerOffset_ = pack.footerPartition;
    }
    seen_.push_back({pack.bodySID, thisPartition});
}

void MXFStructureValidator::checkFields(const KLVKey& key, const MXFPartitionPack& pack) {
    if (pack.kagSize != 0) {
        warnIf(pack.headerByteCount % pack.kagSize != 0, faults::unalignedHeaderByteCount);
        warnIf(pack.indexByteCount % pack.kagSize != 0, faults::unalignedIndexByteCount);
    }
    warnIf((pack.indexSID == 0) != (pack.indexByteCount == 0), faults::inconsistentIndexSID);
    warnIf(pack.bodySID == 0 && pack.bodyOffset != 0, faults::inconsistentBodySID);
    warnIf(MXFPartitionKey::isFooter(key) && pack.bodySID != 0, faults::bodySIDInFooter);
}

void MXFStructureValidator::endPartition(const KLVKey& key) {
    if (state_ == State::InFooter) {
        util::check(MXFPartitionKey::isFooter(key), "is footer partition");
        state_ = State::AfterFooter;
    } else {
        util::check(state_ == State::InPartition, "in partition");
        util::check(!MXFPartitionKey::isFooter(key), "is header or body partition");
        state_ = State::AfterPartition;
    }
    if (std::exchange(partitionTold_, false)) {
        next_->endPartition(key);
    }
}

void MXFStructureValidator::randomIndex(const MXFRandomIndex& table) {
    hasRandomIndex_ = true;
    switch (state_) {
    case State::Started:
    case State::AfterRandomIndex:
        report(errorHandler_, faults::unexpectedRandomIndex);
        break;
    case State::AfterPartition:
    case State::AfterFooter:
        break;
    default:
        util::check(false, "before random index");
    }
    state_ = State::AfterRandomIndex;
    warnIf(locator_ != nullptr && seen_ != table, faults::incorrectRandomIndex);
    next_->randomIndex(table);
}

void MXFStructureValidator::endStructure(bool aborted) {
    const auto end = [&](bool endAborted) {
        if (std::exchange(structureTold_, false)) {
            next_->endStructure(endAborted);
        }
    };
    state_ = State::Idle;
    locator_ = nullptr;
    try {
        if (!aborted && !headerHasFooter_ && !hasRandomIndex_) {
            report(errorHandler_, faults::noWayToPartitions);
        }
    } catch (...) { // the error handler's
        util::quietly([&] { end(true); });
        throw;
    }
    end(aborted);
}

} // namespace vexa_toolkit
