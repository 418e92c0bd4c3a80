#include "gc/MXFGCSystemCoder.h"

#include "klv/berLength.h"
#include "klv/writeElements.h"

inline namespace vexa_toolkit {

MXFGCSystemCoder::MXFGCSystemCoder(KLVHandler& next) : next_(&next) {}

MXFGCSystemCoder::~MXFGCSystemCoder() = default;

bool MXFGCSystemCoder::wantsSystem(const KLVKey&) {
    return true;
}

void MXFGCSystemCoder::systemLocalSet(const KLVKey& key, const LocalItems& items) {
    next_->berLengthForm(klvutil::defaultBERForm);
    klvutil::writeLocalSet(*next_, key, items, klvutil::defaultBERForm);
}

void MXFGCSystemCoder::systemFixedLengthPack(const KLVKey& key, const Bytes& value) {
    next_->berLengthForm(klvutil::defaultBERForm);
    klvutil::writeFixedLengthPack(*next_, key, value);
}

void MXFGCSystemCoder::systemVariableLengthPack(const KLVKey& key, const PackItems& items) {
    next_->berLengthForm(klvutil::defaultBERForm);
    klvutil::writeVariableLengthPack(*next_, key, items, klvutil::defaultBERForm);
}

} // namespace vexa_toolkit
