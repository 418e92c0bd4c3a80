#pragma once

#include "front/VEXAEssenceSplitter.h"
#include "front/VEXASystemParser.h"

inline namespace vexa_toolkit {

/// Reads the bodies of partitions for the handlers that there are.
class EssenceChain {
public:
    /// Each may be null; none is owned.
    struct Handlers {
        MXFGCStructureHandler* structure = nullptr;
        MXFSDTICPSystemHandler* sdticpSystem = nullptr;
        MXFQZProxySystemHandler* proxySystem = nullptr;
        MXFGCEssenceHandler* essence = nullptr;

        bool any() const { return structure != nullptr || essence != nullptr || anySystem(); }
        bool anySystem() const { return sdticpSystem != nullptr || proxySystem != nullptr; }
    };

    /// `classifier` and `mixedEssence` are VEXAEssenceSplitter's; `errors` may be null. `buffer` is
    /// lent to the splitter.
    EssenceChain(const Handlers& handlers, boost::shared_ptr<VEXAGCEssenceKeyClassifier> classifier,
                 bool mixedEssence, ErrorHandler* errors, EssenceBuffer& buffer);

    /// Takes the KLV events of bodies.
    KLVHandler& klvHandler() { return splitter_; }

private:
    VEXASystemParser system_;
    VEXAEssenceSplitter splitter_;
};

} // namespace vexa_toolkit
