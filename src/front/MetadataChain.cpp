#include "front/MetadataChain.h"

#include "front/VEXAMetadataFactory.h"

#include <boost/make_shared.hpp>

inline namespace vexa_toolkit {

namespace {

boost::shared_ptr<MXFMetadataModelFactory>
ownFactory(const boost::shared_ptr<ErrorHandler>& errors) {
    const auto factory = boost::make_shared<VEXAMetadataFactory>();
    factory->setErrorHandler(errors);
    return factory;
}

} // namespace

MetadataChain::MetadataChain(VEXAMetadataHandler& handler,
                             const boost::shared_ptr<MXFMetadataModelFactory>& factory,
                             const boost::shared_ptr<ErrorHandler>& errors)
    : factory_(factory != nullptr ? factory : ownFactory(errors)), parser_(handler, *factory_) {
    parser_.setErrorHandler(errors.get());
}

} // namespace vexa_toolkit
