#pragma once

#include <vexa/Export.h>
#include <vexa/gc/system/MXFTimecode.h>

#include <cstdint>
#include <vector>

/// The system items of proxy streams, one for each edit unit.
///
/// Events: `proxySystemItem*`.
class VEXA_EXPORT MXFQZProxySystemHandler {
public:
    virtual ~MXFQZProxySystemHandler();

    /// The frames in the edit unit, and the timecode of each. A `frameCount` of 0 stands for one
    /// frame: the item doesn't say a number. In a file the two may differ. Where an item says
    /// neither, or what can't be decoded, the count is 0 and the timecodes are those that are
    /// whole.
    virtual void proxySystemItem(std::uint32_t frameCount,
                                 const std::vector<MXFTimecode>& timecodes) = 0;
};
