#pragma once

#include <vexa/Export.h>
#include <vexa/index/MXFIndexTableSegment.h>

inline namespace vexa_toolkit {

/// The events of the index region of a partition (SMPTE 377M), a segment at a time.
///
/// Events: `startIndexTable indexTableSegment* endIndexTable`.
class VEXA_EXPORT MXFIndexHandler {
public:
    virtual ~MXFIndexHandler();

    virtual void startIndexTable() = 0;
    /// Comes after a failure, too.
    virtual void endIndexTable() = 0;

    virtual void indexTableSegment(const MXFIndexTableSegment& segment) = 0;
};

} // namespace vexa_toolkit
