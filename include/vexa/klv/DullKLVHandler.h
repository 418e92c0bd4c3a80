#pragma once

#include <vexa/klv/KLVHandler.h>

inline namespace vexa_toolkit {

/// Does nothing and wants nothing: a base for handlers that care about a few events.
class VEXA_EXPORT DullKLVHandler : public KLVHandler {
public:
    ~DullKLVHandler() override;

    void setLocator(const Locator* locator) override;
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override;
    void endIndividualItem(const KLVKey& key) override;
    bool startLabel(const KLVKey& key) override;
    void endLabel(const KLVKey& key) override;
    bool startUniversalSet(const KLVKey& key, std::uint64_t length) override;
    void endUniversalSet(const KLVKey& key) override;
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override;
    void endLocalSet(const KLVKey& key) override;
    bool startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** buffer) override;
    void endLocalItem(std::uint32_t tag) override;
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                              std::uint8_t** buffer) override;
    void endFixedLengthPack(const KLVKey& key) override;
    bool startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                 LengthType lengthType) override;
    void endVariableLengthPack(const KLVKey& key) override;
    bool startVariableLengthItem(std::uint64_t length, std::uint8_t** buffer) override;
    void endVariableLengthItem() override;
    bool startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                      std::uint8_t** buffer) override;
    void endWrapper(const KLVKey& key) override;
    void value(const std::uint8_t* data, std::uint64_t size) override;
};

} // namespace vexa_toolkit
