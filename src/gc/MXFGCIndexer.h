#pragma once

#include <vexa/gc/MXFGCStructureHandler.h>

#include <vector>

inline namespace vexa_toolkit {

class Locator;

/// Passes the structure of a Generic Container on, and measures where its edit units and their
/// slices fall in the stream (SMPTE 377M, index table segment).
class MXFGCIndexer : public MXFGCStructureHandler {
public:
    /// The locator tells where the stream stands that the handler writes. Neither is owned.
    MXFGCIndexer(MXFGCStructureHandler& next, const Locator& locator);
    ~MXFGCIndexer() override;

    void startStream(std::uint64_t kagSize) override;
    void endStream() override;
    void startEditUnit() override;
    /// Then calls indexEditUnit.
    void endEditUnit() override;
    /// The check is "valid slice offset": below 2^32.
    void startSlice() override;
    void endSlice() override;
    void startFixedElement(std::uint64_t length) override;
    void endFixedElement() override;
    void startAlignedElement(std::uint64_t alignment) override;
    void endAlignedElement() override;

    /// An edit unit has ended. `position` is where in the stream it began, and `sliceOffsets` has
    /// the offset in bytes from there of each slice but the first.
    virtual void indexEditUnit(std::uint64_t position,
                               const std::vector<std::uint32_t>& sliceOffsets) = 0;

private:
    std::uint64_t position() const;

    MXFGCStructureHandler* next_;
    const Locator* locator_;
    std::uint64_t editUnitStart_ = 0;
    std::vector<std::uint32_t> sliceOffsets_;
    bool isFirstSlice_ = true;
};

} // namespace vexa_toolkit
