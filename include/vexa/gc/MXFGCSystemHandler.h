#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>
#include <vexa/util/Bytes.h>

#include <cstdint>
#include <utility>
#include <vector>

inline namespace vexa_toolkit {

/// The system elements of a Generic Container (SMPTE 379M), each of them whole.
///
/// Events: `(wantsSystem (systemLocalSet | systemFixedLengthPack | systemVariableLengthPack)?)*`.
/// An element that was wanted stays out if the stream breaks off inside it, if it is longer than
/// 16,777,215 bytes or has more than 65,536 items, or if an item reaches beyond its end.
class VEXA_EXPORT MXFGCSystemHandler {
public:
    using Bytes = util::Bytes;
    /// Tag and value.
    using LocalItem = std::pair<std::uint32_t, Bytes>;
    using LocalItems = std::vector<LocalItem>;
    using PackItems = std::vector<Bytes>;

    virtual ~MXFGCSystemHandler();

    /// Whether the element that follows is to be told.
    virtual bool wantsSystem(const KLVKey& key) = 0;

    /// Items come in the order of the stream, here and in packs.
    virtual void systemLocalSet(const KLVKey& key, const LocalItems& items) = 0;
    virtual void systemFixedLengthPack(const KLVKey& key, const Bytes& value) = 0;
    virtual void systemVariableLengthPack(const KLVKey& key, const PackItems& items) = 0;
};

} // namespace vexa_toolkit
