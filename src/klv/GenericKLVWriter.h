#pragma once

#include "klv/berLength.h"

#include <vexa/klv/KLVHandler.h>

#include <cstdint>
#include <optional>
#include <ostream>

inline namespace vexa_toolkit {

/// Writes the events that it is told, as SMPTE 336M KLV. A reader connected straight to a writer
/// copies a file.
///
/// It takes every value through `value`, never into a buffer of its own. Everything that goes wrong
/// is util::assertion_failure: a broken order of events, a length that its form can't hold, a
/// stream that fails ("successful write()"). What was written stays.
class GenericKLVWriter : public KLVHandler {
public:
    /// The stream is not owned.
    explicit GenericKLVWriter(std::ostream& stream);
    ~GenericKLVWriter() override;

    void setLocator(const Locator* locator) override;
    /// The checks are "has not started" and "unbuffered output is possible".
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    /// The check is "valid form".
    void berLengthForm(std::uint8_t form) override;
    /// A fill item takes the registry version that the stream carries, if it carries one.
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

private:
    void checkStarted() const;
    void write(const void* data, std::uint64_t size);
    void writeKey(const KLVKey& key);
    void writeHead(const KLVKey& key, std::uint64_t length);
    void writeInteger(std::uint64_t value, std::uint8_t octets);
    void writeItemLength(std::uint64_t length);
    KLVKey fillKey(const KLVKey& key);

    std::ostream* stream_;
    /// The stream's attribute, once it was asked for.
    std::optional<std::uint8_t> fillKeyVersion_;
    bool started_ = false;
    std::uint8_t form_ = klvutil::noBERForm;
    TagType tagType_ = 0;
    LengthType lengthType_ = 0;
};

} // namespace vexa_toolkit
