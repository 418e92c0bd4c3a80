#pragma once

#include <vexa/gc/MXFGCChunkedEssenceHandler.h>

inline namespace vexa_toolkit {

/// Takes large elements in pieces, and does nothing at their end: a second base for essence
/// handlers to which a piece is as good as an element.
class VEXA_EXPORT DullMXFGCChunkedEssenceHandler : public MXFGCChunkedEssenceHandler {
public:
    ~DullMXFGCChunkedEssenceHandler() override;

    bool wantsChunkedEssence(const KLVKey& key, std::uint64_t length) override;
    void endChunkedEssence(const KLVKey& key) override;
};

} // namespace vexa_toolkit
