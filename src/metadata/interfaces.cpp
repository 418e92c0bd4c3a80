#include <vexa/metadata/MXFMetadataFactory.h>
#include <vexa/metadata/MXFMetadataHandler.h>
#include <vexa/metadata/MXFMetadataModelHandler.h>

inline namespace vexa_toolkit {

// The destructors anchor each class's run-time type information in this library.

MXFMetadataFactory::~MXFMetadataFactory() = default;
MXFMetadataHandler::~MXFMetadataHandler() = default;
MXFMetadataModelHandler::~MXFMetadataModelHandler() = default;
dangling_ref_base::~dangling_ref_base() = default;

} // namespace vexa_toolkit
