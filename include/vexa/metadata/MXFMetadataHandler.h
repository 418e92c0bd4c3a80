#pragma once

#include <vexa/Export.h>
#include <vexa/metadata/MXFPrimedSet.h>
#include <vexa/metadata/MXFPrimer.h>

inline namespace vexa_toolkit {

/// The events of a partition's header metadata (SMPTE 377M), a set at a time.
///
/// Events: `startMetadata primer? (wantsPrimedSet primedSet?)* endMetadata`.
class VEXA_EXPORT MXFMetadataHandler {
public:
    virtual ~MXFMetadataHandler();

    virtual void startMetadata() = 0;
    /// Comes after a failure, too.
    virtual void endMetadata() = 0;

    virtual void primer(const MXFPrimer& primer) = 0;

    /// Asked when a set begins; false makes a reader skip it.
    virtual bool wantsPrimedSet(const KLVKey& key) = 0;

    virtual void primedSet(const MXFPrimedSet& set) = 0;
};

} // namespace vexa_toolkit
