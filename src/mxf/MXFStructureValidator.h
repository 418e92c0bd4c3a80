#pragma once

#include <vexa/mxf/MXFStructureHandler.h>

inline namespace vexa_toolkit {

class ErrorHandler;
class Locator;

namespace klvutil {
struct Fault;
}

/// Checks that partitions come in a lawful order, and that each partition pack and the random index
/// tell the truth about the file (SMPTE 377M). Every event is passed on unchanged, whatever is
/// reported. A wrong order of events, which no reader produces, is util::assertion_failure, and so
/// is a structure that doesn't start right behind the run-in.
///
/// It can follow one file after another; the locator must be set again for each.
class MXFStructureValidator : public MXFStructureHandler {
public:
    /// The handler isn't owned.
    explicit MXFStructureValidator(MXFStructureHandler& next);
    ~MXFStructureValidator() override;

    /// May be null, and is not owned.
    virtual void setErrorHandler(ErrorHandler* errorHandler);
    /// Before startStructure. At startPartition its position must lie behind the pack and the fill
    /// item that follows it. Without a locator positions aren't checked.
    virtual void setLocator(const Locator* locator);

    void runIn(std::uint64_t length) override;
    void startStructure() override;
    void endStructure(bool aborted) override;
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override;
    void endPartition(const KLVKey& key) override;
    void randomIndex(const MXFRandomIndex& table) override;

private:
    enum class State {
        Idle,
        AfterRunIn,
        Started,
        InPartition,
        AfterPartition,
        InFooter,
        AfterFooter,
        AfterRandomIndex,
    };

    void checkOrder(const KLVKey& key);
    void checkVersion(const MXFPartitionPack& pack);
    void checkPositions(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount);
    void checkFields(const KLVKey& key, const MXFPartitionPack& pack);
    void warnIf(bool condition, const klvutil::Fault& fault);

    State state_ = State::Idle;
    MXFStructureHandler* next_;
    ErrorHandler* errorHandler_ = nullptr;
    const Locator* locator_ = nullptr;
    /// What has begun for the next handler: an error handler may throw before it is told.
    bool structureTold_ = false;
    bool partitionTold_ = false;
    std::uint64_t runIn_ = 0;
    /// What the random index must say.
    MXFRandomIndex seen_;
    /// The last non-zero footerPartition.
    std::uint64_t footerOffset_ = 0;
    bool headerHasFooter_ = false;
    bool hasRandomIndex_ = false;
};

} // namespace vexa_toolkit
