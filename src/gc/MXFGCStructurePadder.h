#pragma once

#include "klv/KLVFiller.h"

#include <vexa/gc/MXFGCStructureHandler.h>

inline namespace vexa_toolkit {

/// Puts fill behind the elements of a Generic Container (SMPTE 377M, KLV alignment grid), so that
/// each of them takes its fixed size or keeps its alignment. Both count from the element's first
/// byte. The checks of KLVFiller stand.
class MXFGCStructurePadder : public MXFGCStructureHandler {
public:
    /// Fill goes to the handler, and the locator tells where its stream stands. Neither is owned.
    MXFGCStructurePadder(KLVHandler& next, const Locator& locator);
    MXFGCStructurePadder(const MXFGCStructurePadder&) = delete;
    MXFGCStructurePadder& operator=(const MXFGCStructurePadder&) = delete;
    ~MXFGCStructurePadder() override;

    void startStream(std::uint64_t kagSize) override;
    void endStream() override;
    void startEditUnit() override;
    void endEditUnit() override;
    void startSlice() override;
    void endSlice() override;
    void startFixedElement(std::uint64_t length) override;
    void endFixedElement() override;
    /// The check is "alignment is multiple of KAG size".
    void startAlignedElement(std::uint64_t alignment) override;
    void endAlignedElement() override;

private:
    std::uint64_t kagSize_ = 1;
    KLVFiller filler_;
    const Locator* locator_;
};

} // namespace vexa_toolkit
