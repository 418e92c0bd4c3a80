#pragma once

#include <vexa/gc/MXFGCChunkedEssenceHandler.h>
#include <vexa/gc/MXFGCEssenceHandler.h>
#include <vexa/gc/MXFGCStructureHandler.h>

inline namespace vexa_toolkit {

/// Brings what a reader tells of a Generic Container into the shape that a writer takes: a reader
/// tells edit units and elements only; here each system item, and each essence element, becomes an
/// aligned element of one slice (SMPTE 379M; SMPTE 377M, KLV alignment grid).
///
/// Events go on to the writer's handlers, the system item's straight to the writer's own.
class VEXA_EXPORT MXFGCElementAligner : public MXFGCStructureHandler,
                                        public MXFGCEssenceHandler,
                                        public MXFGCChunkedEssenceHandler {
public:
    /// `essence` must be an MXFGCChunkedEssenceHandler, too, if elements come in pieces: the check
    /// is "chunked essence handler is present". Neither is owned.
    MXFGCElementAligner(MXFGCStructureHandler& structure, MXFGCEssenceHandler& essence);
    ~MXFGCElementAligner() override;

    /// What streams from now on are aligned to, in bytes: the KAG size of the partition, 0 for
    /// none.
    void setKAGSize(std::uint64_t kagSize) { kagSize_ = kagSize; }

    /// The KAG size that it is told has no effect.
    void startStream(std::uint64_t kagSize) override;
    void endStream() override;
    void startEditUnit() override;
    void endEditUnit() override;
    void startSlice() override;
    void endSlice() override;
    void startFixedElement(std::uint64_t length) override;
    void endFixedElement() override;
    void startAlignedElement(std::uint64_t alignment) override;
    void endAlignedElement() override;

    bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) override;
    void pictureElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void soundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void dataElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void compoundElement(const KLVKey& key, const std::uint8_t* data,
                         std::uint64_t length) override;
    void essenceLengthForm(std::uint8_t form) override;

    bool wantsChunkedEssence(const KLVKey& key, std::uint64_t length) override;
    void endChunkedEssence(const KLVKey& key) override;

private:
    MXFGCChunkedEssenceHandler& chunked();

    MXFGCStructureHandler* structure_;
    MXFGCEssenceHandler* essence_;
    std::uint64_t kagSize_ = 0;
};

} // namespace vexa_toolkit
