#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// The other half of an MXFGCEssenceHandler that takes large elements in pieces.
///
/// Events: `chunked = wantsChunkedEssence (element* endChunkedEssence)?`, where the pieces are the
/// element calls of MXFGCEssenceHandler, in order, with the same key. If the answer was no, one
/// such call with null data follows. The end stays out if the stream breaks off.
class VEXA_EXPORT MXFGCChunkedEssenceHandler {
public:
    virtual ~MXFGCChunkedEssenceHandler();

    /// Whether to take the element in pieces. A reader asks for elements of more than 16,777,215
    /// bytes that were wanted without a buffer. `length` is that of the value, in bytes; to a
    /// writer, all bits set is a length that isn't known yet.
    virtual bool wantsChunkedEssence(const KLVKey& key, std::uint64_t length) = 0;

    virtual void endChunkedEssence(const KLVKey& key) = 0;
};

} // namespace vexa_toolkit
