#pragma once

#include "klv/berLength.h"

#include <vexa/gc/MXFGCChunkedEssenceHandler.h>
#include <vexa/gc/MXFGCEssenceHandler.h>

#include <optional>

inline namespace vexa_toolkit {

class KLVHandler;

/// Writes essence elements (SMPTE 379M) as individual items: whole, or in pieces behind one key and
/// length. Values pass by pointer.
///
/// Lengths are coded in the form that was told last; as long as none was, in 4 octets, or in 8
/// where an element is longer than 16,777,215 bytes or its length isn't known.
class MXFGCEssenceCoder : public MXFGCEssenceHandler, public MXFGCChunkedEssenceHandler {
public:
    /// A length that isn't known yet. It is written as 0.
    static constexpr std::uint64_t unknownLength = UINT64_MAX;

    /// The handler is not owned.
    explicit MXFGCEssenceCoder(KLVHandler& next);
    ~MXFGCEssenceCoder() override;

    /// Forgets a chunked element that the stream before broke off in. The length form stays.
    void startStream();

    /// Always true.
    bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) override;
    /// The checks of all four are "correct chunked essence key", "correct chunked length" and "has
    /// essence data".
    void pictureElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void soundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void dataElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void compoundElement(const KLVKey& key, const std::uint8_t* data,
                         std::uint64_t length) override;
    /// 80 hexadecimal is none.
    void essenceLengthForm(std::uint8_t form) override;

    /// Always true. The checks are "not in chunked essence" and "wants essence".
    bool wantsChunkedEssence(const KLVKey& key, std::uint64_t length) override;
    /// The checks are "in chunked essence" and "correct chunked length".
    void endChunkedEssence(const KLVKey& key) override;

private:
    std::uint8_t formFor(std::uint64_t length) const;
    void writeElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length);
    void writePiece(const KLVKey& key, const std::uint8_t* data, std::uint64_t length);

    KLVHandler* next_;
    std::uint8_t lengthForm_ = klvutil::noBERForm;
    /// The chunked element that is open, and what it lacks.
    std::optional<KLVKey> chunkKey_;
    std::uint64_t chunkRemaining_ = 0;
};

} // namespace vexa_toolkit
