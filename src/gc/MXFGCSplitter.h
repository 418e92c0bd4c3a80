#pragma once

#include "gc/EssenceBuffer.h"
#include "gc/SystemElement.h"
#include "klv/berLength.h"

#include <vexa/klv/DullKLVHandler.h>

#include <cstddef>
#include <optional>

inline namespace vexa_toolkit {

class ErrorHandler;
class MXFGCChunkedEssenceHandler;
class MXFGCEssenceHandler;
class MXFGCStructureHandler;
class MXFGCSystemHandler;

/// Cuts the KLV events of a partition's body into the elements of a Generic Container (SMPTE 379M)
/// and their edit units. The standard marks no edit unit: one begins whenever the stream's first
/// key comes back.
///
/// Handlers aren't owned, and may be null: what nobody wants is skipped. An essence handler that is
/// an MXFGCChunkedEssenceHandler, too, may take elements of more than 16,777,215 bytes in pieces.
/// What is wrong with elements is reported, and doesn't stop the stream; a broken order of events
/// is util::assertion_failure.
class MXFGCSplitter : public DullKLVHandler {
public:
    MXFGCSplitter() = default;
    MXFGCSplitter(MXFGCStructureHandler* structure, MXFGCSystemHandler* system,
                  MXFGCEssenceHandler* essence);
    ~MXFGCSplitter() override;

    virtual void setStructureHandler(MXFGCStructureHandler* handler);
    /// The check is "structure handler is present".
    virtual MXFGCStructureHandler& getStructureHandler();
    virtual void setSystemHandler(MXFGCSystemHandler* handler);
    /// The check is "system handler is present".
    virtual MXFGCSystemHandler& getSystemHandler();
    virtual void setEssenceHandler(MXFGCEssenceHandler* handler);
    /// The check is "essence handler is present".
    virtual MXFGCEssenceHandler& getEssenceHandler();
    virtual void setErrorHandler(ErrorHandler* errorHandler);
    /// Lends a buffer for the elements that come in none of the handler's, so that its storage
    /// outlives this splitter. It must outlive the streams that follow.
    void setEssenceBuffer(EssenceBuffer& buffer);

    /// Classification; subclasses may widen it.
    virtual bool isSystemElement(const KLVKey& key);
    /// Must hold besides one of the four that follow.
    virtual bool isEssenceElement(const KLVKey& key);
    virtual bool isPictureElement(const KLVKey& key);
    virtual bool isSoundElement(const KLVKey& key);
    virtual bool isDataElement(const KLVKey& key);
    virtual bool isCompoundElement(const KLVKey& key);
    /// Whether an edit unit without system elements may have essence elements of two kinds: false.
    virtual bool allowsMixedEssence();

    /// The checks are "before start" and "has accurate lengths".
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override;
    void endIndividualItem(const KLVKey& key) override;
    bool startLabel(const KLVKey& key) override;
    bool startUniversalSet(const KLVKey& key, std::uint64_t length) override;
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
    void value(const std::uint8_t* data, std::uint64_t size) override;

private:
    enum class State {
        Idle,
        /// No valid element so far.
        Started,
        /// The edit unit has a system element.
        InSystem,
        /// Edit units begin with essence.
        EssenceOnly,
        /// Behind a system element, or once an edit unit had essence of two kinds.
        InEssence,
    };
    enum Category : std::size_t { Picture, Sound, Data, Compound, categories };

    bool inEditUnit() const;
    bool inEssence() const;
    void startElement(const KLVKey& key);
    std::optional<Category> categoryOf(const KLVKey& key);
    void enterEssence(const KLVKey& key);
    bool offerEssence(const KLVKey& key, std::uint64_t length);
    void tellEssence(const KLVKey& key, const std::uint8_t* data, std::uint64_t length);
    bool startSystemElement(const KLVKey& key, std::uint64_t length, const char* expected);
    bool endSystemElement(const char* expected) const;
    bool startSystemItem(std::uint64_t length, const char* expected);
    void refuseSystemElement();
    bool refuse(const KLVKey& key);

    MXFGCStructureHandler* structureHandler_ = nullptr;
    MXFGCSystemHandler* systemHandler_ = nullptr;
    MXFGCEssenceHandler* essenceHandler_ = nullptr;
    /// The essence handler's other half, if it has one.
    MXFGCChunkedEssenceHandler* chunkedHandler_ = nullptr;
    ErrorHandler* errorHandler_ = nullptr;

    State state_ = State::Idle;
    /// The BER forms in force, and last told to the essence handler.
    std::uint8_t form_ = klvutil::noBERForm;
    std::uint8_t toldForm_ = klvutil::noBERForm;
    std::optional<KLVKey> firstKey_;
    /// An edit unit was begun, and not ended.
    bool editUnitOpen_ = false;
    /// The one kind of essence that there has been, as long as edit units begin with essence.
    Category onlyCategory_ = Picture;

    /// The present element.
    KLVKey key_;
    std::optional<Category> category_;
    bool wanted_ = false;
    /// It goes to the handler in pieces.
    bool isChunked_ = false;
    SystemElement system_;
    EssenceBuffer ownBuffer_;
    EssenceBuffer* essence_ = &ownBuffer_;
};

} // namespace vexa_toolkit
