#pragma once

#include "gc/system/MXFQZProxySystemParser.h"
#include "gc/system/MXFSDTICPSystemParser.h"

#include <optional>

inline namespace vexa_toolkit {

/// Takes the system elements of a Generic Container to the parser of their format: proxy system
/// items by their key, all others as SDTI-CP. A format without a handler isn't wanted.
class VEXASystemParser : public MXFGCSystemHandler {
public:
    VEXASystemParser();
    VEXASystemParser(const VEXASystemParser&) = delete;
    VEXASystemParser& operator=(const VEXASystemParser&) = delete;
    ~VEXASystemParser() override;

    bool wantsSystem(const KLVKey& key) override;
    /// These are for the element that was asked about last; the check is "current handler is
    /// present".
    void systemLocalSet(const KLVKey& key, const LocalItems& items) override;
    void systemFixedLengthPack(const KLVKey& key, const Bytes& value) override;
    void systemVariableLengthPack(const KLVKey& key, const PackItems& items) override;

    /// For both formats; not owned.
    void setErrorHandler(ErrorHandler& errorHandler);
    /// Begins a new parser, as the other does; the handler is not owned.
    void setSDTICPSystemHandler(MXFSDTICPSystemHandler& handler);
    void setQZProxySystemHandler(MXFQZProxySystemHandler& handler);

private:
    MXFGCSystemHandler& current();

    ErrorHandler* errorHandler_ = nullptr;
    std::optional<MXFSDTICPSystemParser> sdticpParser_;
    std::optional<MXFQZProxySystemParser> proxyParser_;
    /// One of the two, or null.
    MXFGCSystemHandler* current_ = nullptr;
};

} // namespace vexa_toolkit
