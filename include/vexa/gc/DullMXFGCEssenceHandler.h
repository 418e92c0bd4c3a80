#pragma once

#include <vexa/gc/MXFGCEssenceHandler.h>

inline namespace vexa_toolkit {

/// Does nothing and wants nothing: a base for handlers that care about a few elements.
class VEXA_EXPORT DullMXFGCEssenceHandler : public MXFGCEssenceHandler {
public:
    ~DullMXFGCEssenceHandler() override;

    bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) override;
    void pictureElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void soundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void dataElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) override;
    void compoundElement(const KLVKey& key, const std::uint8_t* data,
                         std::uint64_t length) override;
    void essenceLengthForm(std::uint8_t form) override;
};

} // namespace vexa_toolkit
