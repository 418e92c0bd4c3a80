#pragma once

#include "klv/KLVFiller.h"
#include "klv/KLVMonitor.h"
#include "metadata/primed/primerLookup.h"

#include <vexa/metadata/MXFMetadataHandler.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// Turns a primer and sets into the KLV events of a partition's header metadata (SMPTE 377M): the
/// opposite of MXFMetadataParser. Lengths are BER coded in 4 octets.
///
/// In files of version 1.3 on, a fill item before the Preface makes the bytes from the primer
/// pack's first to the Preface a multiple of the primer alignment.
class MXFMetadataCoder : public MXFMetadataHandler {
public:
    /// The handler is not owned.
    explicit MXFMetadataCoder(KLVHandler& handler);
    MXFMetadataCoder(const MXFMetadataCoder&) = delete;
    MXFMetadataCoder& operator=(const MXFMetadataCoder&) = delete;
    ~MXFMetadataCoder() override;

    /// Bytes; 512 at first, 0 is no alignment.
    virtual void setPrimerAlignment(std::uint32_t alignment);

    /// The check is "before start".
    void startMetadata() override;
    void endMetadata() override;
    /// The checks are "before primer", "consistent primer tag -> key" and "consistent primer key ->
    /// tag".
    void primer(const MXFPrimer& primer) override;
    bool wantsPrimedSet(const KLVKey& key) override;
    /// The checks are "before primed set" and those of metadata::writePrimedSet.
    void primedSet(const MXFPrimedSet& set) override;

private:
    enum class State { Idle, Started, PrimerWritten };

    void clearFill();
    void endPrimerRegion(const MXFPrimedSet& preface);

    KLVMonitor monitor_;
    KLVFiller filler_;
    std::uint32_t primerAlignment_ = 512;
    metadata::KeyToTag keyToTag_;
    State state_ = State::Idle;
};

} // namespace vexa_toolkit
