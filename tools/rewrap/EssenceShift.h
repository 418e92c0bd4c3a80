#pragma once

#include <vexa/index/MXFIndexTableSegment.h>

#include <cstdint>
#include <vector>

/// Where the bytes of an essence stream have gone, when fill between its elements has changed.
class EssenceShift {
public:
    /// What began at `from` in the old stream begins at `to` in the new one. In the order of the
    /// stream.
    void add(std::uint64_t from, std::uint64_t to);

    std::uint64_t operator()(std::uint64_t from) const;

    /// Whether all is where it was.
    bool isNone() const { return steps_.empty(); }

    /// A segment of the old stream's index, for the new one. Throws std::runtime_error where edit
    /// units that had one size have no longer one.
    MXFIndexTableSegment apply(MXFIndexTableSegment segment) const;

private:
    /// From here on, what is added to an offset; it may be negative, modulo 2^64.
    struct Step {
        std::uint64_t from;
        std::uint64_t shift;
    };

    void applyToDeltas(MXFIndexTableSegment& segment) const;
    void applyToEntries(MXFIndexTableSegment& segment) const;
    void applyToByteCount(MXFIndexTableSegment& segment) const;

    std::vector<Step> steps_;
    std::uint64_t end_ = 0;
};
