#include "front/VEXAEssenceSplitter.h"

#include "klv/keyLiteral.h"

#include <utility>

inline namespace vexa_toolkit {

namespace {

using klvutil::operator""_key;

constexpr KLVKey rawPicture = "060E2B34.01020106.0E067F03.15017F00"_key;
constexpr KLVKey privatePicture = "060E2B34.01020101.0E060301.15014000"_key;
constexpr KLVKey privateData = "060E2B34.01020101.0E060301.17014000"_key;

} // namespace

VEXAEssenceSplitter::VEXAEssenceSplitter(boost::shared_ptr<VEXAGCEssenceKeyClassifier> classifier,
                                         bool mixedEssence)
    : classifier_(std::move(classifier)), mixedEssence_(mixedEssence) {}

VEXAEssenceSplitter::~VEXAEssenceSplitter() = default;

bool VEXAEssenceSplitter::isEssenceElement(const KLVKey& key) {
    return key == rawPicture || key == privatePicture || key == privateData ||
           MXFGCSplitter::isEssenceElement(key) ||
           (classifier_ != nullptr && classifier_->isEssence(key));
}

bool VEXAEssenceSplitter::isPictureElement(const KLVKey& key) {
    return key == rawPicture || key == privatePicture || MXFGCSplitter::isPictureElement(key) ||
           (classifier_ != nullptr && classifier_->isPicture(key));
}

bool VEXAEssenceSplitter::isSoundElement(const KLVKey& key) {
    return MXFGCSplitter::isSoundElement(key) ||
           (classifier_ != nullptr && classifier_->isSound(key));
}

bool VEXAEssenceSplitter::isDataElement(const KLVKey& key) {
    return key == privateData || MXFGCSplitter::isDataElement(key) ||
           (classifier_ != nullptr && classifier_->isData(key));
}

bool VEXAEssenceSplitter::isCompoundElement(const KLVKey& key) {
    return MXFGCSplitter::isCompoundElement(key) ||
           (classifier_ != nullptr && classifier_->isCompound(key));
}

bool VEXAEssenceSplitter::allowsMixedEssence() {
    return mixedEssence_;
}

} // namespace vexa_toolkit
