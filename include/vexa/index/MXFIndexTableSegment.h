#pragma once

#include <vexa/klv/MXFUID.h>
#include <vexa/metadata/MXFRational.h>

#include <boost/optional/optional.hpp>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// Where one element lies within an edit unit (SMPTE 377M, DeltaEntry).
struct MXFDeltaEntry {
    /// -1: the element is reordered in time; 1 and up: the number of its pos table entry; 0:
    /// neither.
    std::int8_t posTableIndex = 0;
    /// The slice that the element lies in, counted from 0.
    std::uint8_t slice = 0;
    /// Bytes from the start of the slice to the element.
    std::uint32_t elementDelta = 0;
};

/// One edit unit of a segment with entries (SMPTE 377M, IndexEntry).
struct MXFIndexEntry {
    /// Edit units from here to the entry of the picture that is shown at this place.
    std::int8_t temporalOffset = 0;
    /// Edit units from here to the key frame that decoding begins with: 0 or negative.
    std::int8_t keyFrameOffset = 0;
    /// Bit 7: random access; bit 6: sequence header; bit 5: forward prediction; bit 4: backward
    /// prediction.
    std::uint8_t flags = 0;
    /// Bytes from the start of the essence container to the edit unit.
    std::uint64_t streamOffset = 0;
    /// Bytes from the edit unit's start to slices 1 and up: as many as the segment's sliceCount.
    std::vector<std::uint32_t> sliceOffsets;
    /// As many as the segment's posTableCount.
    std::vector<MXFRational> posTable;
};

/// A part of an index table (SMPTE 377M, index table segment). It has one editUnitByteCount for all
/// edit units, or an entry for each. Files may hold contradictions.
struct MXFIndexTableSegment {
    /// All zero means that none is assigned yet: a writer then makes a new one each time, and
    /// leaves the record as it is.
    MXFUID instanceUID;
    /// Edit units in a second.
    MXFRational indexEditRate;
    /// The first edit unit that the segment covers.
    std::int64_t indexStartPosition = 0;
    /// Edit units that the segment covers; 0 in one with an editUnitByteCount means all of them.
    std::int64_t indexDuration = 0;
    /// 0 in a segment with entries.
    std::uint32_t editUnitByteCount = 0;
    /// Stream of the index table segments, as in partition packs.
    std::uint32_t indexSID = 0;
    /// Stream of the essence that the segment covers.
    std::uint32_t bodySID = 0;
    /// One less than the slices of an edit unit.
    std::uint8_t sliceCount = 0;
    /// The pos table entries of an edit unit.
    std::uint8_t posTableCount = 0;
    /// One for each element of an edit unit.
    std::vector<MXFDeltaEntry> deltaEntryArray;
    std::vector<MXFIndexEntry> indexEntryArray;
    /// SMPTE 377-1:2009: whether the whole index table lies in one partition. None: not said.
    boost::optional<bool> singleIndexLocation;
    /// SMPTE 377-1:2009: whether all the essence that the table indexes lies in one partition.
    boost::optional<bool> singleEssenceLocation;
    /// SMPTE 377-1:2009: whether the table comes before the essence that it indexes.
    boost::optional<bool> forwardIndexDirection;
};

constexpr bool operator==(const MXFDeltaEntry& a, const MXFDeltaEntry& b) {
    return a.posTableIndex == b.posTableIndex && a.slice == b.slice &&
           a.elementDelta == b.elementDelta;
}

constexpr bool operator!=(const MXFDeltaEntry& a, const MXFDeltaEntry& b) {
    return !(a == b);
}

inline bool operator==(const MXFIndexEntry& a, const MXFIndexEntry& b) {
    return a.temporalOffset == b.temporalOffset && a.keyFrameOffset == b.keyFrameOffset &&
           a.flags == b.flags && a.streamOffset == b.streamOffset &&
           a.sliceOffsets == b.sliceOffsets && a.posTable == b.posTable;
}

inline bool operator!=(const MXFIndexEntry& a, const MXFIndexEntry& b) {
    return !(a == b);
}

inline bool operator==(const MXFIndexTableSegment& a, const MXFIndexTableSegment& b) {
    return a.instanceUID == b.instanceUID && a.indexEditRate == b.indexEditRate &&
           a.indexStartPosition == b.indexStartPosition && a.indexDuration == b.indexDuration &&
           a.editUnitByteCount == b.editUnitByteCount && a.indexSID == b.indexSID &&
           a.bodySID == b.bodySID && a.sliceCount == b.sliceCount &&
           a.posTableCount == b.posTableCount && a.deltaEntryArray == b.deltaEntryArray &&
           a.indexEntryArray == b.indexEntryArray &&
           a.singleIndexLocation == b.singleIndexLocation &&
           a.singleEssenceLocation == b.singleEssenceLocation &&
           a.forwardIndexDirection == b.forwardIndexDirection;
}

inline bool operator!=(const MXFIndexTableSegment& a, const MXFIndexTableSegment& b) {
    return !(a == b);
}

} // namespace vexa_toolkit
