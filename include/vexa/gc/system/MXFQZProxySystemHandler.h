#pragma once

#include <vexa/Export.h>
#include <vexa/gc/system/MXFTimecode.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// The system items of proxy streams, one for each edit unit.
///
/// Events: `proxySystemItem*`.
class VEXA_EXPORT MXFQZProxySystemHandler {
public:
    virtual ~MXFQZProxySystemHandler();

    /// The frames in the edit unit, and the timecode of each; in a file the two may differ.
    ///
    /// A `frameCount` of 0 means one of two things: the edit unit has one frame, and the item
    /// doesn't say so; or the number is missing, 0, or couldn't be decoded. Of timecodes that
    /// couldn't be decoded those are there that are whole.
    virtual void proxySystemItem(std::uint32_t frameCount,
                                 const std::vector<MXFTimecode>& timecodes) = 0;
};

} // namespace vexa_toolkit
