#pragma once

#include <vexa/metadata/MXFMetadataHandler.h>

#include <cstdint>
#include <memory>

inline namespace vexa_toolkit {

class KLVHandler;

/// Turns a primer and sets into the KLV events of a partition's header metadata (SMPTE 377M, header
/// metadata), one region after another. Lengths are BER coded in 4 octets.
///
/// In files of version 1.3 on, a fill item before the Preface makes the bytes from the primer
/// pack's first to the Preface a multiple of the primer alignment.
///
/// A broken order of events, and what can't be coded, is util::assertion_failure; what the handler
/// throws passes through. Where the start of a region fails, the handler is told that what began
/// has broken off; whatever fails later, the next region can begin once endMetadata was called.
class VEXA_EXPORT MXFMetadataCoder : public MXFMetadataHandler {
public:
    /// The handler isn't owned, and outlives the coder.
    explicit MXFMetadataCoder(KLVHandler& handler);
    MXFMetadataCoder(const MXFMetadataCoder&) = delete;
    MXFMetadataCoder& operator=(const MXFMetadataCoder&) = delete;
    ~MXFMetadataCoder() override;

    /// Bytes; 512 at first, 0 is no alignment.
    virtual void setPrimerAlignment(std::uint32_t alignment);

    /// The check is "before start".
    void startMetadata() override;
    /// The check is "in filled item".
    void endMetadata() override;
    /// The checks are "before primer", "consistent primer tag -> key" and "consistent primer key ->
    /// tag".
    void primer(const MXFPrimer& primer) override;
    bool wantsPrimedSet(const KLVKey& key) override;
    /// The checks are "before primed set", "valid local set key", "supported tag type" (tags have
    /// two octets), "valid property key" (the primer has it), and "no repeated properties in order
    /// hint".
    void primedSet(const MXFPrimedSet& set) override;

private:
    struct Region;

    std::unique_ptr<Region> region_;
};

} // namespace vexa_toolkit
