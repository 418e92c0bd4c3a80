#pragma once

#include "klv/KLVFiller.h"
#include "klv/KLVMonitor.h"

#include <vexa/index/MXFIndexHandler.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Codes index table segments as KLV (SMPTE 377M, index table segment), each of them aligned to the
/// KAG as seen from the start of the index region. No fill follows the last one.
///
/// A broken order of events is util::assertion_failure; what encodeSegment() and the next handler
/// throw passes through.
class MXFIndexCoder : public MXFIndexHandler {
public:
    /// The handler is not owned.
    explicit MXFIndexCoder(KLVHandler& next);
    MXFIndexCoder(const MXFIndexCoder&) = delete;
    MXFIndexCoder& operator=(const MXFIndexCoder&) = delete;
    ~MXFIndexCoder() override;

    /// The check is "before start".
    void startIndexTable() override;
    /// The check is "in filled item".
    void endIndexTable() override;
    /// The check is "before index table segment".
    void indexTableSegment(const MXFIndexTableSegment& segment) override;

    /// In bytes, 512 at first, 0 for none; for the regions that start from now on.
    virtual void setKAGSize(std::uint32_t kagSize);

    /// Whether the usual properties of a segment are written even if they are 0 or empty: always.
    virtual bool codesAllProperties(const MXFIndexTableSegment& segment);

private:
    KLVMonitor monitor_;
    KLVFiller filler_;
    std::uint32_t kagSize_ = 512;
    bool started_ = false;
};

} // namespace vexa_toolkit
