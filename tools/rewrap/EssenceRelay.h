#pragma once

#include "rewrap/EssenceShift.h"

#include <vexa/vexa.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

/// Plays the edit units that a reader tells into a writer, each element on the partition's grid,
/// and learns where they go.
class EssenceRelay : public MXFGCElementAligner {
public:
    /// `position` tells where the reader stands in its file, as a Locator does. Unless it writes,
    /// it tells the writer lengths, and takes no essence from the reader. Nothing is owned.
    EssenceRelay(VEXAWriter& writer, std::function<std::int64_t()> position, bool writes);

    /// Comes before the first edit unit of a partition.
    void setBegin(std::function<void()> begin) { begin_ = std::move(begin); }
    /// The partition that begins, as it was, and where in the old file its body lies.
    void setPartition(const MXFPartitionPack& pack, std::uint64_t bodyStart);

    /// Of the new essence stream so far.
    std::uint64_t bytes(std::uint32_t bodySID) { return bytes_[bodySID]; }
    const std::map<std::uint32_t, EssenceShift>& shifts() const { return shifts_; }

    void startStream(std::uint64_t kagSize) override;
    void endStream() override;
    void startEditUnit() override;
    void endEditUnit() override;
    bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) override;
    void essenceLengthForm(std::uint8_t form) override;

private:
    /// Where something begins: the position that the reader told, and the new offset.
    struct Place {
        std::int64_t position;
        std::uint64_t offset;
    };

    Place here() const;
    std::uint64_t oldOffset(std::int64_t position, std::uint64_t headSize) const;
    void noteSystemItem();

    const Locator* written_;
    std::function<std::int64_t()> position_;
    std::function<void()> begin_;
    bool writes_;

    MXFPartitionPack pack_;
    std::uint64_t bodyStart_ = 0;
    std::map<std::uint32_t, std::uint64_t> bytes_;
    std::map<std::uint32_t, EssenceShift> shifts_;
    /// Where the writer's counter stood when the stream began.
    std::uint64_t streamStart_ = 0;
    /// Of key and length.
    std::uint64_t elementHead_ = 20;
    std::optional<std::uint64_t> systemHead_;
    /// An edit unit of which nothing has come yet, or a system item.
    std::optional<Place> editUnit_;
};
