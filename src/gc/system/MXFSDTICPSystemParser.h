#pragma once

#include "gc/system/systemItem.h"
#include "klv/Fault.h"

#include <vexa/gc/MXFGCSystemHandler.h>
#include <vexa/gc/system/MXFSDTICPSystemHandler.h>

#include <array>
#include <cstdint>
#include <set>
#include <string>

inline namespace vexa_toolkit {

/// Turns the system elements of a Generic Container into parts of SDTI-CP system items (SMPTE 326M,
/// 385M) and reports where these aren't in order. Sets are told whatever is wrong with them; a pack
/// that can't be decoded isn't.
///
/// What is wrong with one item tends to be wrong with all. So each text is reported once in the
/// parser's life. It remembers 1,000 texts; beyond those, texts with a detail are reported each
/// time.
class MXFSDTICPSystemParser : public MXFGCSystemHandler {
public:
    /// The handler is not owned.
    explicit MXFSDTICPSystemParser(MXFSDTICPSystemHandler& handler);
    MXFSDTICPSystemParser(const MXFSDTICPSystemParser&) = delete;
    MXFSDTICPSystemParser& operator=(const MXFSDTICPSystemParser&) = delete;
    ~MXFSDTICPSystemParser() override;

    /// Reports a key that has no place in an SDTI-CP system item, and answers false.
    bool wantsSystem(const KLVKey& key) override;
    void systemLocalSet(const KLVKey& key, const LocalItems& items) override;
    /// The check is "valid SDTI-CP fixed length pack".
    void systemFixedLengthPack(const KLVKey& key, const Bytes& value) override;
    /// Throws util::assertion_failure "valid SDTI-CP variable length pack": none is wanted.
    void systemVariableLengthPack(const KLVKey& key, const PackItems& items) override;

    /// May be null; not owned.
    virtual void setErrorHandler(ErrorHandler* errorHandler);

private:
    enum class State {
        /// A pack comes next; so, too, behind control data.
        Initial,
        ControlExpected,
        NoControlExpected,
    };

    void metadataSet(gcsystem::SystemSet kind, std::uint8_t announcedCount,
                     const LocalItems& items);
    void controlData(const LocalItems& items);
    void report(const klvutil::Fault& fault, const std::string& detail = {});
    bool isNew(const std::string& text, bool hasDetail);

    MXFSDTICPSystemHandler& handler_;
    ErrorHandler* errorHandler_ = nullptr;
    State state_ = State::Initial;
    /// The metadata sets that came since the pack.
    std::array<bool, 4> seen_{};
    std::set<std::string> reported_;
};

} // namespace vexa_toolkit
