#include "mxf/MXFSplitter.h"

#include "klv/fillItem.h"
#include "klv/gathering.h"
#include "mxf/MXFStructureValidator.h"
#include "mxf/faults.h"
#include "mxf/keys.h"
#include "mxf/partitionPack.h"
#include "mxf/randomIndex.h"
#include "util/check.h"
#include "util/quietly.h"

#include <vexa/mxf/MXFPartitionKey.h>

inline namespace vexa_toolkit {

using klvutil::describe;
using klvutil::fail;
using klvutil::report;
namespace faults = mxf::faults;

namespace {

/// Packs of a file's structure that are longer aren't gathered.
constexpr std::uint64_t longestPack = 64 * 1024 * 1024;

/// What is said of an element that stands where none may, by its coding.
struct Texts {
    klvutil::Fault unexpected;
    const char* expected;
    const char* expectedItem = "";
};

const Texts& textsOf(klvutil::KLVCoding coding) {
    static constexpr Texts texts[] = {
        {faults::unexpectedIndividualItem, "expected individual item"},
        {faults::unexpectedUniversalSet, "expected universal set"},
        {faults::unexpectedLocalSet, "expected local set", "expected local item"},
        {faults::unexpectedVariableLengthPack, "expected variable length pack",
         "expected variable length item"},
        {faults::unexpectedFixedLengthPack, "expected fixed length pack"},
        {faults::unexpectedWrapper, "expected wrapper"},
        {faults::unexpectedLabel, "expected label"},
    };
    return texts[static_cast<std::size_t>(coding)];
}

/// The end of a section, as a file announces it: the sum may be anything.
std::streamoff endOf(std::streamoff start, std::uint64_t byteCount) {
    return static_cast<std::streamoff>(static_cast<std::uint64_t>(start) + byteCount);
}

} // namespace

MXFSplitter::MXFSplitter(MXFStructureHandler& structure, KLVHandler& metadata, KLVHandler& index,
                         KLVHandler& essence, bool validate)
    : structureHandler_(&structure), metadataHandler_(&metadata), indexHandler_(&index),
      essenceHandler_(&essence) {
    if (validate) {
        validator_ = std::make_unique<MXFStructureValidator>(structure);
        structureHandler_ = validator_.get();
    }
}

MXFSplitter::~MXFSplitter() = default;

void MXFSplitter::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
    if (validator_) {
        validator_->setErrorHandler(errorHandler);
    }
}

void MXFSplitter::runIn(std::uint64_t length) {
    util::check(state_ == State::Idle, "before start");
    structureHandler_->runIn(length);
}

// Positions

std::streamoff MXFSplitter::position() const {
    return delegatedLocator_.getPosition();
}

void MXFSplitter::followReader() {
    delegatedLocator_.setPosition(locator_->getPosition());
}

// Sections

bool MXFSplitter::isDelegating() const {
    return state_ == State::InMetadata || state_ == State::InIndex || state_ == State::InBody;
}

KLVHandler& MXFSplitter::delegate() const {
    util::check(isDelegating(), "is delegating state");
    return state_ == State::InMetadata ? *metadataHandler_
           : state_ == State::InIndex  ? *indexHandler_
                                       : *essenceHandler_;
}

/// Brings the present section's delegate to the reader's position. A delegate always knows the BER
/// form in force, also if it changed before its section.
void MXFSplitter::startDelegate() {
    KLVHandler& to = delegate();
    if (delegateStarted_) {
        followReader();
        return;
    }
    to.setLocator(&delegatedLocator_);
    delegateStarted_ = true;
    to.startStream(true);
    followReader();
    to.berLengthForm(berForm_);
}

void MXFSplitter::endDelegate(bool aborted) {
    if (isDelegating() && delegateStarted_) {
        delegateStarted_ = false;
        delegate().endStream(aborted);
    }
}

void MXFSplitter::enterPartition() {
    if (state_ == State::AfterPack) {
        state_ = State::InMetadata;
        util::check(!partitionOpen_, "is not in partition");
        partitionOpen_ = true;
        structureHandler_->startPartition(partitionKey_, pack_, packByteCount_);
    }
}

void MXFSplitter::leavePartition() {
    if (partitionOpen_) {
        partitionOpen_ = false;
        structureHandler_->endPartition(partitionKey_);
    }
}

/// Leaves the sections that end here. An empty one is crossed without its delegate being started.
void MXFSplitter::advance() {
    if (universalSets_.isNested()) {
        return;
    }
    const std::streamoff headerEnd =
        endOf(endOf(packPosition_, packByteCount_), pack_.headerByteCount);
    if (state_ == State::InMetadata) {
        if (headerEnd < position()) {
            fail(errorHandler_, faults::incorrectHeaderByteCount);
        }
        if (headerEnd == position()) {
            endDelegate(false);
            state_ = State::InIndex;
        }
    }
    if (state_ == State::InIndex) {
        const std::streamoff indexEnd = endOf(headerEnd, pack_.indexByteCount);
        if (indexEnd < position()) {
            fail(errorHandler_, faults::incorrectIndexByteCount);
        }
        if (indexEnd == position()) {
            endDelegate(false);
            state_ = State::InBody;
        }
    }
}

/// At the start of an element that must lie in a section.
KLVHandler& MXFSplitter::sectionFor(const KLVStart& start) {
    enterPartition();
    advance();
    if (!isDelegating()) {
        fail(errorHandler_, textsOf(start.coding).unexpected, describe(start.key));
    }
    startDelegate();
    return delegate();
}

/// At the end of such an element.
KLVHandler& MXFSplitter::sectionBehind(Coding coding) {
    if (coding == Coding::UniversalSet) {
        universalSets_.end();
    }
    lastWasFill_ = false;
    return sectionOf(textsOf(coding).expected);
}

/// Within one.
KLVHandler& MXFSplitter::sectionOf(const char* expected) {
    followReader();
    util::check(isDelegating(), expected);
    return delegate();
}

const char* MXFSplitter::expectedItem(Coding coding) {
    return textsOf(coding).expectedItem;
}

// Stream

void MXFSplitter::setLocator(const Locator* locator) {
    locator_ = locator;
}

void MXFSplitter::startStream(bool accurateLengths) {
    util::check(state_ == State::Idle, "before start");
    util::check(accurateLengths, "has accurate lengths");
    util::check(locator_ != nullptr, "has locator");
    followReader();
    if (validator_) {
        validator_->setLocator(&delegatedLocator_);
    }
    state_ = State::Started;
    delegateStarted_ = false;
    partitionOpen_ = false;
    universalSets_.reset();
    structureHandler_->startStructure();
}

void MXFSplitter::endStream(bool aborted) {
    if (locator_ != nullptr) {
        followReader();
    }
    lastWasFill_ = false;
    locator_ = nullptr;
    try {
        if (!aborted) {
            finishSections();
        }
        endDelegate(aborted);
        leavePartition();
        leaveStructure(aborted);
    } catch (...) {
        // Whoever was started, and hasn't been told of the end, is told now.
        util::quietly([&] { endDelegate(true); });
        util::quietly([&] { leavePartition(); });
        util::quietly([&] { leaveStructure(true); });
        throw;
    }
}

void MXFSplitter::leaveStructure(bool aborted) {
    if (state_ != State::Idle) {
        state_ = State::Idle;
        structureHandler_->endStructure(aborted);
    }
}

void MXFSplitter::finishSections() {
    enterPartition();
    advance();
    if (state_ == State::InMetadata) {
        fail(errorHandler_, faults::incorrectHeaderByteCount);
    }
    if (state_ == State::InIndex) {
        fail(errorHandler_, faults::incorrectIndexByteCount);
    }
}

void MXFSplitter::berLengthForm(std::uint8_t form) {
    berForm_ = form;
    if (isDelegating() && delegateStarted_) {
        delegate().berLengthForm(form);
    }
}

// Packs

bool MXFSplitter::startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                                       std::uint8_t** buffer) {
    enterPartition();
    advance();
    const bool isBoundary = !universalSets_.isNested() &&
                            (key == mxf::keys::randomIndex || MXFPartitionKey::isPartitionKey(key));
    if (!isBoundary || (state_ != State::InBody && state_ != State::Started)) {
        return KLVForwarding::startFixedLengthPack(key, length, buffer);
    }
    endDelegate(false);
    leavePartition();
    return startPack(key, length);
}

/// The delegated position still is the end of the element before the pack. A pack that is too long
/// isn't wanted.
bool MXFSplitter::startPack(const KLVKey& key, std::uint64_t length) {
    packPosition_ = position();
    state_ = key == mxf::keys::randomIndex ? State::InRandomIndex : State::InPack;
    packLength_ = length;
    klvutil::startGathering(packBuffer_, length);
    return length <= longestPack;
}

void MXFSplitter::value(const std::uint8_t* data, std::uint64_t size) {
    if (state_ == State::InPack || state_ == State::InRandomIndex) {
        klvutil::gather(packBuffer_, data, size);
        return;
    }
    sectionOf("expected value").value(data, size);
}

void MXFSplitter::endFixedLengthPack(const KLVKey& key) {
    lastWasFill_ = false;
    followReader();
    if (state_ == State::InPack) {
        endPartitionPack(key);
    } else if (state_ == State::InRandomIndex) {
        endRandomIndexPack(key);
    } else {
        KLVForwarding::endFixedLengthPack(key);
    }
}

const util::Bytes& MXFSplitter::wholePack() const {
    util::check(packBuffer_.size() == packLength_, "valid external length");
    return packBuffer_;
}

void MXFSplitter::endPartitionPack(const KLVKey& key) {
    util::check(MXFPartitionKey::isPartitionKey(key), "expected fixed length pack");
    partitionKey_ = key;
    try {
        pack_ = mxf::decodePartitionPack(wholePack());
    } catch (const util::assertion_failure& failure) {
        fail(errorHandler_, faults::invalidPartition, failure.what());
    }
    packByteCount_ = static_cast<std::uint64_t>(position() - packPosition_);
    state_ = State::AfterPack;
}

void MXFSplitter::endRandomIndexPack(const KLVKey& key) {
    util::check(key == mxf::keys::randomIndex, "expected fixed length pack");
    state_ = State::AfterRandomIndex;
    MXFRandomIndex table;
    try {
        table = mxf::decodeRandomIndex(wholePack(), berForm_);
        util::check(!table.empty(), "has entries");
    } catch (const util::assertion_failure& failure) {
        report(errorHandler_, faults::invalidRandomIndex, failure.what());
    }
    if (!table.empty()) {
        structureHandler_->randomIndex(table);
    }
}

// Individual items, fill among them

bool MXFSplitter::startIndividualItem(const KLVKey& key, std::uint64_t length,
                                      std::uint8_t** buffer) {
    if (key == klvutil::fillItemKey && !universalSets_.isNested()) {
        if (lastWasFill_) {
            report(errorHandler_, faults::adjacentFillItems);
        }
        if (state_ == State::AfterPack) {
            return false;
        }
    }
    return KLVForwarding::startIndividualItem(key, length, buffer);
}

void MXFSplitter::endIndividualItem(const KLVKey& key) {
    const bool isFill = key == klvutil::fillItemKey && !universalSets_.isNested();
    if (state_ == State::AfterPack) {
        followReader();
        util::check(isFill, "expected individual item");
        packByteCount_ = static_cast<std::uint64_t>(position() - packPosition_);
        enterPartition();
    } else {
        KLVForwarding::endIndividualItem(key);
    }
    lastWasFill_ = isFill;
}

} // namespace vexa_toolkit
