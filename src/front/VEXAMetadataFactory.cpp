#include "front/VEXAMetadataFactory.h"

#include <vexa/front/VEXADefaultMetadataFactory.h>

#include <boost/make_shared.hpp>

inline namespace vexa_toolkit {

VEXAMetadataFactory::VEXAMetadataFactory()
    : MXFMetadataModelFactoryList({
          boost::make_shared<MXFFormatMetadataModelFactory>(),
          boost::make_shared<MXFAES3MetadataModelFactory>(),
          boost::make_shared<MXFMPEGMetadataModelFactory>(),
          boost::make_shared<MXFVBIANCMetadataModelFactory>(),
      }) {}

VEXAMetadataFactory::~VEXAMetadataFactory() = default;

boost::shared_ptr<MXFMetadataModelFactory> createVEXADefaultMetadataFactory() {
    return boost::make_shared<VEXAMetadataFactory>();
}

} // namespace vexa_toolkit
