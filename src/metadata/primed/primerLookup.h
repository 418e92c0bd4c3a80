#pragma once

#include <vexa/metadata/MXFPrimer.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

inline namespace vexa_toolkit {

namespace metadata {

/// What the tags of local sets stand for.
class TagToKey {
public:
    TagToKey() = default;
    /// The first row of a tag counts.
    explicit TagToKey(const MXFPrimer& primer);

    void clear() { entries_.clear(); }

    /// Takes a row, unless the tag has one. Returns what the tag stands for now.
    KLVKey insert(const MXFPrimerEntry& entry);

    /// Null if the tag isn't known. Valid until the next change.
    const KLVKey* find(std::uint32_t tag) const;

private:
    /// Places in `entries_` by the low byte of a tag. A place counts only if the tag is there, so
    /// that clearing needn't touch them.
    using Page = std::array<std::uint16_t, 256>;

    std::vector<MXFPrimerEntry> entries_;
    /// By the high byte, as far as tags have needed them.
    std::array<std::unique_ptr<Page>, 256> pages_;
};

/// The tags that stand for properties.
class KeyToTag {
public:
    KeyToTag() = default;
    /// The first row of a key counts.
    explicit KeyToTag(const MXFPrimer& primer);

    std::optional<std::uint16_t> find(const KLVKey& key) const;

private:
    MXFPrimer::const_iterator place(const KLVKey& key) const;

    /// By key, each key once.
    MXFPrimer entries_;
};

/// A primer that tags and keys are looked up in.
class PrimerTable {
public:
    /// The first row of a tag or key counts.
    explicit PrimerTable(MXFPrimer rows)
        : rows_(std::move(rows)), tagToKey_(rows_), keyToTag_(rows_) {}

    const MXFPrimer& rows() const { return rows_; }
    const KLVKey* findKey(std::uint16_t tag) const { return tagToKey_.find(tag); }
    std::optional<std::uint16_t> findTag(const KLVKey& key) const { return keyToTag_.find(key); }

private:
    MXFPrimer rows_;
    TagToKey tagToKey_;
    KeyToTag keyToTag_;
};

} // namespace metadata

} // namespace vexa_toolkit
