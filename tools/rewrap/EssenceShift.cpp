#include "rewrap/EssenceShift.h"

#include <algorithm>
#include <stdexcept>

void EssenceShift::add(std::uint64_t from, std::uint64_t to) {
    const std::uint64_t shift = to - from;
    if (shift != (steps_.empty() ? 0 : steps_.back().shift)) {
        steps_.push_back({from, shift});
    }
    end_ = from;
}

std::uint64_t EssenceShift::operator()(std::uint64_t from) const {
    const auto next =
        std::upper_bound(steps_.begin(), steps_.end(), from,
                         [](std::uint64_t offset, const Step& step) { return offset < step.from; });
    return next == steps_.begin() ? from : from + std::prev(next)->shift;
}

MXFIndexTableSegment EssenceShift::apply(MXFIndexTableSegment segment) const {
    if (isNone()) {
        return segment;
    }
    applyToDeltas(segment); // while the first entry is as it was
    applyToEntries(segment);
    applyToByteCount(segment);
    return segment;
}

/// An element has the same offset in its slice in every edit unit: the first one tells.
void EssenceShift::applyToDeltas(MXFIndexTableSegment& segment) const {
    const MXFIndexEntry first =
        segment.indexEntryArray.empty() ? MXFIndexEntry() : segment.indexEntryArray.front();
    for (MXFDeltaEntry& delta : segment.deltaEntryArray) {
        std::uint64_t slice = first.streamOffset;
        if (delta.slice > 0 && delta.slice <= first.sliceOffsets.size()) {
            slice += first.sliceOffsets[delta.slice - 1U];
        }
        delta.elementDelta =
            static_cast<std::uint32_t>((*this)(slice + delta.elementDelta) - (*this)(slice));
    }
}

void EssenceShift::applyToEntries(MXFIndexTableSegment& segment) const {
    for (MXFIndexEntry& entry : segment.indexEntryArray) {
        const std::uint64_t editUnit = (*this)(entry.streamOffset);
        for (std::uint32_t& slice : entry.sliceOffsets) {
            slice = static_cast<std::uint32_t>((*this)(entry.streamOffset + slice) - editUnit);
        }
        entry.streamOffset = editUnit;
    }
}

void EssenceShift::applyToByteCount(MXFIndexTableSegment& segment) const {
    const std::uint64_t size = segment.editUnitByteCount;
    if (size == 0) {
        return;
    }
    const std::uint64_t newSize = (*this)(size) - (*this)(0);
    // Where the size changes, each edit unit has a step of its own: so these are not endless.
    const std::uint64_t last = newSize == size ? 0 : end_ / size;
    bool isRegular = last <= steps_.size();
    for (std::uint64_t unit = 0; isRegular && unit <= last; ++unit) {
        isRegular = (*this)(unit * size) - (*this)(0) == unit * newSize;
    }
    for (std::size_t i = 0; isRegular && newSize == size && i < steps_.size(); ++i) {
        isRegular = steps_[i].shift == (*this)(0);
    }
    if (!isRegular) {
        throw std::runtime_error("the index says that edit units have one size, and with this "
                                 "program's fill they have not");
    }
    segment.editUnitByteCount = static_cast<std::uint32_t>(newSize);
}
