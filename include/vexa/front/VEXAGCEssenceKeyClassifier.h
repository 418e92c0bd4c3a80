#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

inline namespace vexa_toolkit {

/// Lets a caller declare essence elements under keys of its own (SMPTE 379M, Generic Container).
///
/// Each question comes where the library's own test has said no: so `isPicture` is asked of sound
/// elements, too, and must not say true for them. An element is delivered if `isEssence` and one of
/// the others hold; the first of them, in their order, says what it is.
class VEXA_EXPORT VEXAGCEssenceKeyClassifier {
public:
    virtual ~VEXAGCEssenceKeyClassifier();

    virtual bool isEssence(const KLVKey& key) = 0;
    virtual bool isPicture(const KLVKey& key) = 0;
    virtual bool isSound(const KLVKey& key) = 0;
    virtual bool isData(const KLVKey& key) = 0;
    virtual bool isCompound(const KLVKey& key) = 0;
};

} // namespace vexa_toolkit
