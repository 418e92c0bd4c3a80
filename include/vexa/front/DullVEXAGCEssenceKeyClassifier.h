#pragma once

#include <vexa/front/VEXAGCEssenceKeyClassifier.h>

inline namespace vexa_toolkit {

/// Declares nothing: a base for classifiers that know some kinds of essence.
class VEXA_EXPORT DullVEXAGCEssenceKeyClassifier : public VEXAGCEssenceKeyClassifier {
public:
    ~DullVEXAGCEssenceKeyClassifier() override;

    bool isEssence(const KLVKey& key) override;
    bool isPicture(const KLVKey& key) override;
    bool isSound(const KLVKey& key) override;
    bool isData(const KLVKey& key) override;
    bool isCompound(const KLVKey& key) override;
};

} // namespace vexa_toolkit
