#include "metadata/model/MXFMetadataModelCoder.h"

#include "metadata/model/codec.h"
#include "metadata/primed/privateKeys.h"
#include "util/check.h"

#include <vexa/metadata/MetadataRoot.h>

#include <algorithm>
#include <optional>
#include <utility>

inline namespace vexa_toolkit {

namespace {

using PrimerMap = std::map<KLVKey, std::uint16_t>;
using IdentifiedSet = std::pair<MXFUID, MXFPrimedSet>;

/// The first is counted up before it is used.
constexpr std::uint16_t beforeDynamicTags = 0x7FFF;
constexpr std::uint16_t lastDynamicTag = 0xFFFF;

/// Adds those properties of a class that a set of it has.
void insertPrimerForSet(PrimerMap& primer, const PrimerMap& setPrimer, const MXFPrimedSet& set) {
    for (const auto& [key, tag] : setPrimer) {
        if (metadata::isPrivateKey(key) || set.properties.count(key) == 0) {
            continue;
        }
        std::uint16_t& present = primer[key];
        util::check(present == 0 || tag == 0 || present == tag, "consistent primer entry");
        if (present == 0) {
            present = tag;
        }
    }
}

/// Adds the dark properties of an object, and takes the order of sets that one of them may hold.
void insertDarkProperties(PrimerMap& primer, const MetadataRoot& object,
                          std::optional<std::vector<MXFUID>>& order) {
    for (const auto& [key, property] : object.getDarkProperties()) {
        if (key == metadata::primedSetOrderHintKey) {
            util::check(!order.has_value(), "single primed set order");
            order = metadata::decodeValue<std::vector<MXFUID>>(object.getDarkProperty(key));
        } else if (!metadata::isPrivateKey(key)) {
            primer[key] = 0;
        }
    }
}

/// The sets named follow those that aren't, in the order named.
void sortSets(std::vector<IdentifiedSet>& sets, const std::vector<MXFUID>& order) {
    std::map<MXFUID, std::size_t> places;
    for (const MXFUID& uid : order) {
        places.emplace(uid, places.size() + 1);
    }
    std::vector<std::pair<std::size_t, std::size_t>> placed; // of a set: place named, and index
    placed.reserve(sets.size());
    for (const IdentifiedSet& set : sets) {
        const auto named = places.find(set.first);
        placed.emplace_back(named == places.end() ? 0 : named->second, placed.size());
    }
    std::sort(placed.begin(), placed.end());
    std::vector<IdentifiedSet> sorted;
    sorted.reserve(sets.size());
    for (const auto& [place, index] : placed) {
        sorted.push_back(std::move(sets[index]));
    }
    sets.swap(sorted);
}

} // namespace

MXFMetadataModelCoder::MXFMetadataModelCoder(MXFMetadataHandler& handler,
                                             MXFMetadataFactory& factory)
    : handler_(handler), factory_(factory) {}

MXFMetadataModelCoder::~MXFMetadataModelCoder() = default;

void MXFMetadataModelCoder::startMetadata() {
    handler_.startMetadata();
}

void MXFMetadataModelCoder::endMetadata() {
    handler_.endMetadata();
}

void MXFMetadataModelCoder::model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) {
    util::check(roots.size() == 1 && roots.front() != nullptr && !roots.front()->hasOwner(),
                "valid model");
    PrimerMap primer;
    std::vector<IdentifiedSet> sets;
    std::optional<std::vector<MXFUID>> order;
    // The next object is the last one here: a model may be deeper than the stack.
    std::vector<boost::shared_ptr<const MetadataRoot>> work{roots.front()};
    while (!work.empty()) {
        const boost::shared_ptr<const MetadataRoot> object = std::move(work.back());
        work.pop_back();
        const MetadataRoot& coded = *object;
        const std::type_info& type = typeid(coded);
        util::check(factory_.canCode(type), "can handle object");
        MXFPrimedSet set = factory_.code(object);
        insertPrimerForSet(primer, factory_.getSetPrimer(type), set);
        insertDarkProperties(primer, *object, order);
        for (const auto& target : set.references) {
            util::check(object->owns(*target), "object owns what it refers to");
        }
        work.insert(work.end(), set.references.rbegin(), set.references.rend());
        sets.emplace_back(object->getInstanceUID(), std::move(set));
    }
    if (order.has_value()) {
        sortSets(sets, *order);
    }
    handler_.primer(allocateDynamicTags(primer));
    for (const auto& [uid, set] : sets) {
        handler_.primedSet(set);
    }
}

MXFPrimer MXFMetadataModelCoder::allocateDynamicTags(const PrimerMap& primer) {
    std::map<std::uint16_t, KLVKey> keys;
    for (const auto& [key, tag] : primer) {
        util::check(tag == 0 || keys.emplace(tag, key).second, "consistent primer entry");
    }
    std::uint16_t tag = beforeDynamicTags;
    for (const auto& [key, fixedTag] : primer) {
        if (fixedTag != 0) {
            continue;
        }
        do {
            util::check(tag < lastDynamicTag, "dynamic tag available");
            ++tag;
        } while (keys.count(tag) != 0);
        keys.emplace(tag, key);
    }
    MXFPrimer entries;
    entries.reserve(keys.size());
    for (const auto& [entryTag, key] : keys) {
        entries.push_back({entryTag, key});
    }
    return entries;
}

} // namespace vexa_toolkit
