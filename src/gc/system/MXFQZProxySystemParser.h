#pragma once

#include <vexa/gc/MXFGCSystemHandler.h>
#include <vexa/gc/system/MXFQZProxySystemHandler.h>

inline namespace vexa_toolkit {

class ErrorHandler;

/// Turns the system elements of a Generic Container into proxy system items. An item is told
/// whatever is wrong with it, as far as it could be decoded.
class MXFQZProxySystemParser : public MXFGCSystemHandler {
public:
    /// The handler is not owned.
    explicit MXFQZProxySystemParser(MXFQZProxySystemHandler& handler);
    MXFQZProxySystemParser(const MXFQZProxySystemParser&) = delete;
    MXFQZProxySystemParser& operator=(const MXFQZProxySystemParser&) = delete;
    ~MXFQZProxySystemParser() override;

    /// Reports a key that isn't that of proxy system items, and answers false.
    bool wantsSystem(const KLVKey& key) override;
    /// The check is "valid QZProxy local set".
    void systemLocalSet(const KLVKey& key, const LocalItems& items) override;
    /// Throws util::assertion_failure "valid QZProxy fixed length pack": none is wanted.
    void systemFixedLengthPack(const KLVKey& key, const Bytes& value) override;
    /// Throws util::assertion_failure "valid QZProxy variable length pack": none is wanted.
    void systemVariableLengthPack(const KLVKey& key, const PackItems& items) override;

    /// May be null; not owned.
    virtual void setErrorHandler(ErrorHandler* errorHandler);

private:
    MXFQZProxySystemHandler& handler_;
    ErrorHandler* errorHandler_ = nullptr;
};

} // namespace vexa_toolkit
