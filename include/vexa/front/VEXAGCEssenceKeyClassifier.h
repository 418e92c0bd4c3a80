#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

/// Lets a caller declare essence elements under keys of its own (SMPTE 379M, Generic Container).
///
/// It is asked about keys that the library doesn't know. An element is delivered if `isEssence` and
/// one of the others say true; the first of them, in their order, says what it is.
class VEXA_EXPORT VEXAGCEssenceKeyClassifier {
public:
    virtual ~VEXAGCEssenceKeyClassifier();

    virtual bool isEssence(const KLVKey& key) = 0;
    virtual bool isPicture(const KLVKey& key) = 0;
    virtual bool isSound(const KLVKey& key) = 0;
    virtual bool isData(const KLVKey& key) = 0;
    virtual bool isCompound(const KLVKey& key) = 0;
};
