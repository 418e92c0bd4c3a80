#pragma once

#include "klv/DullKLVFilter.h"

inline namespace vexa_toolkit {

class ErrorHandler;

/// Warns, once for each stream, of a fill item key in an unexpected registry version. The key is
/// passed on as it came.
class KLVFillItemKeyFilter : public DullKLVFilter {
public:
    /// The version that is expected; 0 accepts 1 and 2.
    explicit KLVFillItemKeyFilter(std::uint8_t fillKeyVersion);
    KLVFillItemKeyFilter(KLVHandler& next, std::uint8_t fillKeyVersion);
    ~KLVFillItemKeyFilter() override;

    /// May be null, and is not owned.
    virtual void setErrorHandler(ErrorHandler* errorHandler);

    void startStream(bool accurateLengths) override;
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override;
    void endIndividualItem(const KLVKey& key) override;

private:
    void checkVersion(const KLVKey& key);

    std::uint8_t fillKeyVersion_;
    ErrorHandler* errorHandler_ = nullptr;
    bool reported_ = false;
};

} // namespace vexa_toolkit
