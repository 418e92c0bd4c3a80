#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

#include <cstdint>
#include <utility>
#include <vector>

/// The system elements of a Generic Container (SMPTE 379M), each of them whole.
///
/// Events: `(wantsSystem (systemLocalSet | systemFixedLengthPack | systemVariableLengthPack)?)*`.
/// An element that was wanted stays out if the stream breaks off inside it, if it is longer than
/// 16,777,215 bytes or has more than 65,536 items, or if an item reaches beyond its end.
class VEXA_EXPORT MXFGCSystemHandler {
public:
    virtual ~MXFGCSystemHandler();

    /// Whether the element that follows is to be told.
    virtual bool wantsSystem(const KLVKey& key) = 0;

    /// The items as tag and value, in the order of the stream.
    virtual void systemLocalSet(
        const KLVKey& key,
        const std::vector<std::pair<std::uint32_t, std::vector<std::uint8_t>>>& items) = 0;
    virtual void systemFixedLengthPack(const KLVKey& key,
                                       const std::vector<std::uint8_t>& value) = 0;
    virtual void systemVariableLengthPack(const KLVKey& key,
                                          const std::vector<std::vector<std::uint8_t>>& items) = 0;
};
