#pragma once

#include <cstdint>

inline namespace vexa_toolkit {

/// Follows the universal sets of a stream of events: what lies in one that its handler wanted is
/// the handler's own, and no top-level element.
class UniversalSetNesting {
public:
    /// At startUniversalSet, with its answer; returns it.
    bool start(bool wanted) {
        wanted_ = wanted;
        depth_ += wanted ? 1U : 0U;
        return wanted;
    }

    /// At endUniversalSet. Only the end right behind the start of an unwanted set is that set's
    /// own.
    void end() {
        depth_ -= wanted_ && depth_ != 0 ? 1U : 0U;
        wanted_ = true;
    }

    void reset() { *this = {}; }
    bool isNested() const { return depth_ != 0; }

private:
    std::uint64_t depth_ = 0;
    bool wanted_ = false;
};

} // namespace vexa_toolkit
