#pragma once

#include <vexa/gc/MXFGCSystemHandler.h>

inline namespace vexa_toolkit {

/// Does nothing and wants nothing: a base for handlers that care about a few elements.
class VEXA_EXPORT DullMXFGCSystemHandler : public MXFGCSystemHandler {
public:
    ~DullMXFGCSystemHandler() override;

    bool wantsSystem(const KLVKey& key) override;
    void systemLocalSet(const KLVKey& key, const LocalItems& items) override;
    void systemFixedLengthPack(const KLVKey& key, const Bytes& value) override;
    void systemVariableLengthPack(const KLVKey& key, const PackItems& items) override;
};

} // namespace vexa_toolkit
