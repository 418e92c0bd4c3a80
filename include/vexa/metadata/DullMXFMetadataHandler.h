#pragma once

#include <vexa/metadata/MXFMetadataHandler.h>

inline namespace vexa_toolkit {

/// Does nothing and wants nothing: a base for handlers that care about a few events.
class VEXA_EXPORT DullMXFMetadataHandler : public MXFMetadataHandler {
public:
    ~DullMXFMetadataHandler() override;

    void startMetadata() override;
    void endMetadata() override;
    void primer(const MXFPrimer& primer) override;
    bool wantsPrimedSet(const KLVKey& key) override;
    void primedSet(const MXFPrimedSet& set) override;
};

} // namespace vexa_toolkit
