#include "gc/MXFGCSystemCoder.h"

#include "klv/berLength.h"
#include "klv/writeElements.h"

MXFGCSystemCoder::MXFGCSystemCoder(KLVHandler& next) : next_(&next) {}

MXFGCSystemCoder::~MXFGCSystemCoder() = default;

bool MXFGCSystemCoder::wantsSystem(const KLVKey&) {
    return true;
}

void MXFGCSystemCoder::systemLocalSet(
    const KLVKey& key,
    const std::vector<std::pair<std::uint32_t, std::vector<std::uint8_t>>>& items) {
    next_->berLengthForm(klvutil::defaultBERForm);
    klvutil::writeLocalSet(*next_, key, items, klvutil::defaultBERForm);
}

void MXFGCSystemCoder::systemFixedLengthPack(const KLVKey& key,
                                             const std::vector<std::uint8_t>& value) {
    next_->berLengthForm(klvutil::defaultBERForm);
    klvutil::writeFixedLengthPack(*next_, key, value);
}

void MXFGCSystemCoder::systemVariableLengthPack(
    const KLVKey& key, const std::vector<std::vector<std::uint8_t>>& items) {
    next_->berLengthForm(klvutil::defaultBERForm);
    klvutil::writeVariableLengthPack(*next_, key, items, klvutil::defaultBERForm);
}
