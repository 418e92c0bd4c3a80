#pragma once

#include "klv/KLVForwarding.h"
#include "klv/UniversalSetNesting.h"
#include "klv/berLength.h"

#include <vexa/klv/Locator.h>
#include <vexa/mxf/MXFStructureHandler.h>
#include <vexa/util/Bytes.h>

#include <memory>

inline namespace vexa_toolkit {

class ErrorHandler;
class MXFStructureValidator;

/// Cuts the KLV events of a whole file into partitions, and each partition into the three sections
/// behind its pack: header metadata, index tables and body (SMPTE 377M). Structure goes to a
/// structure handler; each section that isn't empty goes, as a KLV stream of its own, to its
/// delegate. The byte counts of the partition pack fix where sections end.
///
/// Delegates and validator see positions through a locator of the splitter's. Handlers aren't
/// owned. A fatal error is reported, then thrown as klvutil::parse_error.
class MXFSplitter : public KLVForwarding<MXFSplitter, KLVHandler> {
public:
    /// With `validate`, structure events pass through an MXFStructureValidator.
    MXFSplitter(MXFStructureHandler& structure, KLVHandler& metadata, KLVHandler& index,
                KLVHandler& essence, bool validate);
    ~MXFSplitter() override;

    /// May be null.
    virtual void setErrorHandler(ErrorHandler* errorHandler);
    /// Tells of a run-in of that many bytes, before the stream starts: the check is "before start".
    virtual void runIn(std::uint64_t length);

    void setLocator(const Locator* locator) override;
    /// The checks are "before start", "has accurate lengths" and "has locator".
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override;
    void endIndividualItem(const KLVKey& key) override;
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                              std::uint8_t** buffer) override;
    void endFixedLengthPack(const KLVKey& key) override;
    void value(const std::uint8_t* data, std::uint64_t size) override;

private:
    class DelegatedLocator : public Locator {
    public:
        const std::streampos& getPosition() const override { return position_; }
        void setPosition(const std::streampos& position) { position_ = position; }

    private:
        std::streampos position_ = std::streampos(std::streamoff(0));
    };

    enum class State {
        Idle,
        /// Before the first partition pack.
        Started,
        /// Gathering the value of a partition pack.
        InPack,
        /// Fill may follow; the partition hasn't been told yet.
        AfterPack,
        InMetadata,
        InIndex,
        InBody,
        /// Gathering the value of a random index pack.
        InRandomIndex,
        /// Nothing more may come.
        AfterRandomIndex,
    };

    bool isDelegating() const;
    KLVHandler& delegate() const;
    void startDelegate();
    void endDelegate(bool aborted);
    void enterPartition();
    void leavePartition();
    void advance();
    KLVHandler& sectionFor(const KLVStart& start);
    KLVHandler& sectionBehind(Coding coding);
    KLVHandler& sectionOf(const char* expected);
    static const char* expectedItem(Coding coding);

    friend KLVForwarding<MXFSplitter, KLVHandler>;
    template <class Call> bool startElement(const KLVStart& start, Call call) {
        const bool wanted = call(sectionFor(start));
        return start.coding == Coding::UniversalSet ? universalSets_.start(wanted) : wanted;
    }
    template <class Call> void endElement(Coding coding, Call call) {
        call(sectionBehind(coding));
        advance();
    }
    template <class Call> bool startItem(Coding coding, std::uint64_t, Call call) {
        return call(sectionOf(expectedItem(coding)));
    }
    template <class Call> void endItem(Coding coding, Call call) {
        call(sectionOf(expectedItem(coding)));
    }
    template <class Call> auto pass(Call call) { return call(delegate()); }

    bool startPack(const KLVKey& key, std::uint64_t length);
    const util::Bytes& wholePack() const;
    void endPartitionPack(const KLVKey& key);
    void endRandomIndexPack(const KLVKey& key);
    void finishSections();
    void leaveStructure(bool aborted);

    std::streamoff position() const;
    void followReader();

    std::unique_ptr<MXFStructureValidator> validator_;
    MXFStructureHandler* structureHandler_;
    KLVHandler* metadataHandler_;
    KLVHandler* indexHandler_;
    KLVHandler* essenceHandler_;
    ErrorHandler* errorHandler_ = nullptr;
    /// The reader's.
    const Locator* locator_ = nullptr;
    std::uint8_t berForm_ = klvutil::noBERForm;
    /// Where the present pack's key starts.
    std::streamoff packPosition_ = 0;
    KLVKey partitionKey_;
    MXFPartitionPack pack_;
    /// From packPosition_ to the end of the pack and the fill item that belongs to it.
    std::uint64_t packByteCount_ = 0;
    DelegatedLocator delegatedLocator_;
    bool delegateStarted_ = false;
    /// startPartition was told, and endPartition wasn't.
    bool partitionOpen_ = false;
    bool lastWasFill_ = false;
    UniversalSetNesting universalSets_;
    State state_ = State::Idle;
    /// The value of the pack being gathered, and the length that was announced.
    util::Bytes packBuffer_;
    std::uint64_t packLength_ = 0;
};

} // namespace vexa_toolkit
