#pragma once

#include <vexa/gc/MXFGCSystemHandler.h>

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
    void systemLocalSet(
        const KLVKey& key,
        const std::vector<std::pair<std::uint32_t, std::vector<std::uint8_t>>>& items) override;
    void systemFixedLengthPack(const KLVKey& key, const std::vector<std::uint8_t>& value) override;
    void systemVariableLengthPack(const KLVKey& key,
                                  const std::vector<std::vector<std::uint8_t>>& items) override;

private:
    KLVHandler* next_;
};
