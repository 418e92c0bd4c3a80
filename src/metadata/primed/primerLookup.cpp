#include "metadata/primed/primerLookup.h"

#include <algorithm>

inline namespace vexa_toolkit {

namespace metadata {

namespace {

bool keyIsLess(const MXFPrimerEntry& a, const MXFPrimerEntry& b) {
    return a.key < b.key;
}

bool keysAreEqual(const MXFPrimerEntry& a, const MXFPrimerEntry& b) {
    return a.key == b.key;
}

} // namespace

TagToKey::TagToKey(const MXFPrimer& primer) {
    for (const MXFPrimerEntry& entry : primer) {
        insert(entry);
    }
}

KLVKey TagToKey::insert(const MXFPrimerEntry& entry) {
    if (const KLVKey* const key = find(entry.tag)) {
        return *key;
    }
    std::unique_ptr<Page>& page = pages_[entry.tag >> 8];
    if (!page) {
        page = std::make_unique<Page>();
    }
    (*page)[entry.tag & 0xFF] = static_cast<std::uint16_t>(entries_.size());
    entries_.push_back(entry);
    return entry.key;
}

const KLVKey* TagToKey::find(std::uint32_t tag) const {
    const std::uint32_t high = tag >> 8;
    if (high >= pages_.size() || !pages_[high]) {
        return nullptr;
    }
    const std::size_t place = (*pages_[high])[tag & 0xFF];
    return place < entries_.size() && entries_[place].tag == tag ? &entries_[place].key : nullptr;
}

KeyToTag::KeyToTag(const MXFPrimer& primer) : entries_(primer) {
    std::stable_sort(entries_.begin(), entries_.end(), keyIsLess);
    entries_.erase(std::unique(entries_.begin(), entries_.end(), keysAreEqual), entries_.end());
}

MXFPrimer::const_iterator KeyToTag::place(const KLVKey& key) const {
    return std::lower_bound(entries_.begin(), entries_.end(), MXFPrimerEntry{0, key}, keyIsLess);
}

std::optional<std::uint16_t> KeyToTag::find(const KLVKey& key) const {
    const auto at = place(key);
    return at != entries_.end() && at->key == key ? std::optional(at->tag) : std::nullopt;
}

} // namespace metadata

} // namespace vexa_toolkit
