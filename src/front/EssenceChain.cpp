#include "front/EssenceChain.h"

#include <utility>

inline namespace vexa_toolkit {

EssenceChain::EssenceChain(const Handlers& handlers,
                           boost::shared_ptr<VEXAGCEssenceKeyClassifier> classifier,
                           bool mixedEssence, ErrorHandler* errors, EssenceBuffer& buffer)
    : splitter_(std::move(classifier), mixedEssence) {
    splitter_.setStructureHandler(handlers.structure);
    if (handlers.sdticpSystem != nullptr) {
        system_.setSDTICPSystemHandler(*handlers.sdticpSystem);
    }
    if (handlers.proxySystem != nullptr) {
        system_.setQZProxySystemHandler(*handlers.proxySystem);
    }
    if (handlers.anySystem()) {
        splitter_.setSystemHandler(&system_);
    }
    splitter_.setEssenceHandler(handlers.essence);
    splitter_.setEssenceBuffer(buffer);
    splitter_.setErrorHandler(errors);
    if (errors != nullptr) {
        system_.setErrorHandler(*errors);
    }
}

} // namespace vexa_toolkit
