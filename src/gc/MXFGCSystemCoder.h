#pragma once

#include <vexa/gc/MXFGCSystemHandler.h>

inline namespace vexa_toolkit {

class KLVHandler;

/// Writes system elements (SMPTE 379M) as KLV, their lengths coded in 4 octets. The widths inside
/// sets and packs are those of the key.
class MXFGCSystemCoder : public MXFGCSystemHandler {
public:
    /// The handler is not owned.
    explicit MXFGCSystemCoder(KLVHandler& next);
    ~MXFGCSystemCoder() override;

    /// Always true.
    bool wantsSystem(const KLVKey& key) override;
    void systemLocalSet(const KLVKey& key, const LocalItems& items) override;
    void systemFixedLengthPack(const KLVKey& key, const Bytes& value) override;
    void systemVariableLengthPack(const KLVKey& key, const PackItems& items) override;

private:
    KLVHandler* next_;
};

} // namespace vexa_toolkit
