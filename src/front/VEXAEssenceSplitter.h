#pragma once

#include "gc/MXFGCSplitter.h"

#include <vexa/front/VEXAGCEssenceKeyClassifier.h>

#include <boost/shared_ptr.hpp>

inline namespace vexa_toolkit {

/// Knows the essence elements under private keys that this library reads, and those that the
/// caller's classifier declares.
class VEXAEssenceSplitter : public MXFGCSplitter {
public:
    /// The classifier may be null. `mixedEssence` lets a content package hold elements of two kinds
    /// without a report.
    VEXAEssenceSplitter(boost::shared_ptr<VEXAGCEssenceKeyClassifier> classifier,
                        bool mixedEssence);
    ~VEXAEssenceSplitter() override;

    bool isEssenceElement(const KLVKey& key) override;
    bool isPictureElement(const KLVKey& key) override;
    bool isSoundElement(const KLVKey& key) override;
    bool isDataElement(const KLVKey& key) override;
    bool isCompoundElement(const KLVKey& key) override;
    bool allowsMixedEssence() override;

private:
    boost::shared_ptr<VEXAGCEssenceKeyClassifier> classifier_;
    bool mixedEssence_;
};

} // namespace vexa_toolkit
