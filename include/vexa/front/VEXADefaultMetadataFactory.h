#pragma once

#include <vexa/Export.h>
#include <vexa/metadata/MXFMetadataModelFactory.h>

/// A new factory for all set classes of this library's header metadata.
VEXA_EXPORT boost::shared_ptr<MXFMetadataModelFactory> createVEXADefaultMetadataFactory();
