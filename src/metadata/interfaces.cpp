#include <vexa/metadata/DullMXFMetadataHandler.h>
#include <vexa/metadata/DullMXFMetadataModelHandler.h>
#include <vexa/metadata/MXFMetadataFactory.h>
#include <vexa/metadata/MXFMetadataHandler.h>
#include <vexa/metadata/MXFMetadataModelHandler.h>

inline namespace vexa_toolkit {

// The destructors anchor each class's run-time type information in this library.

MXFMetadataFactory::~MXFMetadataFactory() = default;
MXFMetadataHandler::~MXFMetadataHandler() = default;
MXFMetadataModelHandler::~MXFMetadataModelHandler() = default;
dangling_ref_base::~dangling_ref_base() = default;

DullMXFMetadataHandler::~DullMXFMetadataHandler() = default;

void DullMXFMetadataHandler::startMetadata() {}
void DullMXFMetadataHandler::endMetadata() {}
void DullMXFMetadataHandler::primer(const MXFPrimer&) {}
bool DullMXFMetadataHandler::wantsPrimedSet(const KLVKey&) {
    return false;
}
void DullMXFMetadataHandler::primedSet(const MXFPrimedSet&) {}

DullMXFMetadataModelHandler::~DullMXFMetadataModelHandler() = default;

void DullMXFMetadataModelHandler::startMetadata() {}
void DullMXFMetadataModelHandler::endMetadata() {}
void DullMXFMetadataModelHandler::model(const std::vector<boost::shared_ptr<MetadataRoot>>&) {}

} // namespace vexa_toolkit
