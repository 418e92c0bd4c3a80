#include "metadata/primed/MXFPrimedSetParser.h"

#include "klv/gathering.h"
#include "klv/smpte.h"
#include "metadata/faults.h"
#include "metadata/primed/primer.h"
#include "util/check.h"

#include <vexa/klv/Locator.h>

#include <algorithm>
#include <utility>

inline namespace vexa_toolkit {

using klvutil::report;
namespace faults = metadata::faults;

namespace {

// Of what held the properties of the last set, the usual is kept.
constexpr std::size_t mostSpareNodes = 256;
constexpr std::size_t largestSpareValue = 1024;

} // namespace

MXFPrimedSetParser::MXFPrimedSetParser() = default;

MXFPrimedSetParser::~MXFPrimedSetParser() = default;

void MXFPrimedSetParser::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

void MXFPrimedSetParser::setLocator(const Locator* locator) {
    locator_ = locator;
}

void MXFPrimedSetParser::start(State state) {
    util::check(state_ == State::Idle, "before start");
    state_ = state;
}

void MXFPrimedSetParser::endStream(bool) {
    state_ = State::Idle;
    locator_ = nullptr;
    value_ = nullptr;
    set_.properties.clear();
    spareNodes_.clear();
}

void MXFPrimedSetParser::recycleProperties() {
    auto& properties = set_.properties;
    while (!properties.empty()) {
        auto node = properties.extract(properties.begin());
        if (node.mapped().capacity() <= largestSpareValue && spareNodes_.size() < mostSpareNodes) {
            spareNodes_.push_back(std::move(node));
        }
    }
}

/// The value of a new property, empty; null if the set has the property.
std::vector<std::uint8_t>* MXFPrimedSetParser::addProperty(const KLVKey& key) {
    auto& properties = set_.properties;
    if (spareNodes_.empty()) {
        const auto [property, inserted] = properties.try_emplace(key);
        return inserted ? &property->second : nullptr;
    }
    auto node = std::move(spareNodes_.back());
    spareNodes_.pop_back();
    node.key() = key;
    node.mapped().clear();
    auto result = properties.insert(std::move(node));
    if (!result.inserted) {
        spareNodes_.push_back(std::move(result.node));
        return nullptr;
    }
    return &result.position->second;
}

bool MXFPrimedSetParser::startLocalSet(const KLVKey& key, std::uint64_t, TagType tagType,
                                       LengthType lengthType) {
    largestItem_ = 0;
    lengthType_ = lengthType;
    if (lengthType != klvutil::berLengths && lengthType != klvutil::twoOctetLengths) {
        report(errorHandler_, faults::nonStandardItemLength,
               lengthType == klvutil::oneOctetLengths ? "Fixed 1 byte" : "Fixed 4 byte");
    }
    if (tagType != klvutil::twoOctetTags) {
        return false;
    }
    util::check(state_ == State::BetweenSets, "before primed set");
    if (!wantsPrimedSet(key)) {
        return false;
    }
    set_.key = key;
    recycleProperties();
    value_ = nullptr;
    state_ = State::InSet;
    return true;
}

bool MXFPrimedSetParser::startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t**) {
    largestItem_ = std::max(largestItem_, length);
    util::check(state_ == State::InSet, "in primed set");
    value_ = nullptr;
    const KLVKey* const key = getPrimer().find(tag);
    if (key == nullptr) {
        report(errorHandler_, faults::tagMissingInPrimer, metadata::describeTag(tag));
        return false;
    }
    value_ = addProperty(*key);
    if (value_ == nullptr) {
        report(errorHandler_, faults::repeatedProperty, metadata::describeTag(tag));
        return false;
    }
    klvutil::startGathering(*value_, length);
    return true;
}

void MXFPrimedSetParser::value(const std::uint8_t* data, std::uint64_t size) {
    util::check(state_ == State::InSet && value_ != nullptr, "in primed set");
    klvutil::gather(*value_, data, size);
}

void MXFPrimedSetParser::endLocalSet(const KLVKey&) {
    if (lengthType_ == klvutil::berLengths && largestItem_ <= klvutil::longestTwoOctetLength) {
        report(errorHandler_, faults::nonStandardItemLength, "BER");
    }
    if (state_ == State::InSet) {
        state_ = State::BetweenSets;
        set_.position =
            locator_ != nullptr ? locator_->getPosition() : std::streampos(std::streamoff(-1));
        primedSet(set_);
    }
}

} // namespace vexa_toolkit
