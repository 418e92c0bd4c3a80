#pragma once

#include "metadata/primed/primerLookup.h"

#include <vexa/klv/DullKLVHandler.h>
#include <vexa/metadata/MXFPrimedSet.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

class ErrorHandler;

/// Gathers the items of local sets with two-octet tags (SMPTE 336M, local set) and tells of each
/// set whole, its tags resolved through a primer. A base: a subclass begins the stream, supplies
/// the primer, says which sets are wanted, and takes them.
///
/// The position of a set is that of its end event. Reports don't stop a parse. After an exception
/// of its own or of a subclass, a parser serves again once its stream has been ended.
class MXFPrimedSetParser : public DullKLVHandler {
public:
    ~MXFPrimedSetParser() override;

    /// Not owned; may be null, and then nothing is reported.
    virtual void setErrorHandler(ErrorHandler* errorHandler);
    virtual const metadata::TagToKey& getPrimer() const = 0;
    virtual bool wantsPrimedSet(const KLVKey& key) = 0;
    /// The set is the parser's own, and changes after the call.
    virtual void primedSet(const MXFPrimedSet& set) = 0;

    void setLocator(const Locator* locator) override;
    void endStream(bool aborted) override;
    /// The check is "before primed set".
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override;
    void endLocalSet(const KLVKey& key) override;
    /// The check is "in primed set".
    bool startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** buffer) override;
    /// The check is "in primed set".
    void value(const std::uint8_t* data, std::uint64_t size) override;

protected:
    enum class State {
        Idle,
        BeforePrimer,
        /// Gathering the value of a primer pack.
        InPrimer,
        /// Sets may come.
        BetweenSets,
        /// In a set that is wanted.
        InSet,
    };

    MXFPrimedSetParser();

    /// A stream begins, in a state of the subclass's choice. The check is "before start".
    void start(State state);
    State state() const { return state_; }
    void setState(State state) { state_ = state; }
    ErrorHandler* errorHandler() const { return errorHandler_; }

private:
    void recycleProperties();
    std::vector<std::uint8_t>* addProperty(const KLVKey& key);

    ErrorHandler* errorHandler_ = nullptr;
    const Locator* locator_ = nullptr;
    State state_ = State::Idle;
    /// Of the present set.
    LengthType lengthType_ = 0;
    std::uint64_t largestItem_ = 0;
    MXFPrimedSet set_;
    /// What held properties of the last set, to be used again: sets come by the hundred.
    std::vector<decltype(MXFPrimedSet::properties)::node_type> spareNodes_;
    /// The value of the present item in `set_`; null if it is skipped.
    std::vector<std::uint8_t>* value_ = nullptr;
};

} // namespace vexa_toolkit
