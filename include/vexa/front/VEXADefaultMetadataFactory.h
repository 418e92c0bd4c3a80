#pragma once

#include <vexa/Export.h>
#include <vexa/metadata/MXFMetadataModelFactory.h>

inline namespace vexa_toolkit {

/// A new factory for all set classes of this library's header metadata.
VEXA_EXPORT boost::shared_ptr<MXFMetadataModelFactory> createVEXADefaultMetadataFactory();

} // namespace vexa_toolkit
