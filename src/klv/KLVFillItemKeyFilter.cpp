#include "klv/KLVFillItemKeyFilter.h"

#include "klv/faults.h"
#include "klv/fillItem.h"

inline namespace vexa_toolkit {

KLVFillItemKeyFilter::KLVFillItemKeyFilter(std::uint8_t fillKeyVersion)
    : fillKeyVersion_(fillKeyVersion) {}

KLVFillItemKeyFilter::KLVFillItemKeyFilter(KLVHandler& next, std::uint8_t fillKeyVersion)
    : DullKLVFilter(next), fillKeyVersion_(fillKeyVersion) {}

KLVFillItemKeyFilter::~KLVFillItemKeyFilter() = default;

void KLVFillItemKeyFilter::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

void KLVFillItemKeyFilter::startStream(bool accurateLengths) {
    reported_ = false;
    DullKLVFilter::startStream(accurateLengths);
}

bool KLVFillItemKeyFilter::startIndividualItem(const KLVKey& key, std::uint64_t length,
                                               std::uint8_t** buffer) {
    checkVersion(key);
    return DullKLVFilter::startIndividualItem(key, length, buffer);
}

void KLVFillItemKeyFilter::endIndividualItem(const KLVKey& key) {
    checkVersion(key);
    DullKLVFilter::endIndividualItem(key);
}

void KLVFillItemKeyFilter::checkVersion(const KLVKey& key) {
    if (reported_ || key != klvutil::fillItemKey) {
        return;
    }
    const std::uint8_t version = key[KLVKey::versionByte];
    const bool expected =
        fillKeyVersion_ != 0 ? version == fillKeyVersion_ : version == 1 || version == 2;
    if (!expected) {
        reported_ = true;
        klvutil::report(errorHandler_, klvutil::faults::unexpectedFillItemKeyVersion,
                        klvutil::describe(version));
    }
}

} // namespace vexa_toolkit
