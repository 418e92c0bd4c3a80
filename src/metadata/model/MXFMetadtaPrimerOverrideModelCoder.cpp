#include "metadata/model/MXFMetadtaPrimerOverrideModelCoder.h"

#include "util/check.h"

#include <set>

inline namespace vexa_toolkit {

MXFMetadtaPrimerOverrideModelCoder::MXFMetadtaPrimerOverrideModelCoder(MXFMetadataHandler& handler,
                                                                       MXFMetadataFactory& factory,
                                                                       const MXFPrimer& primer)
    : MXFMetadataModelCoder(handler, factory), fixed_(primer) {}

MXFMetadtaPrimerOverrideModelCoder::~MXFMetadtaPrimerOverrideModelCoder() = default;

MXFPrimer MXFMetadtaPrimerOverrideModelCoder::allocateDynamicTags(
    const std::map<KLVKey, std::uint16_t>& primer) {
    std::map<KLVKey, std::uint16_t> tags = primer;
    std::map<std::uint16_t, KLVKey> keys;
    for (const auto& [key, tag] : primer) {
        if (tag != 0) {
            keys.emplace(tag, key);
        }
    }
    std::set<std::uint16_t> given;
    for (const MXFPrimerEntry& entry : fixed_) {
        if (!given.insert(entry.tag).second) {
            continue; // the first row of a tag counts, as in reading
        }
        const auto taken = keys.find(entry.tag);
        if (taken != keys.end()) {
            const auto holder = tags.find(taken->second);
            util::check(holder != tags.end(), "element in primer");
            if (holder->second == entry.tag) {
                holder->second = 0;
            }
        }
        const auto wanted = tags.find(entry.key);
        if (wanted != tags.end()) {
            wanted->second = entry.tag;
        }
    }
    return MXFMetadataModelCoder::allocateDynamicTags(tags);
}

} // namespace vexa_toolkit
