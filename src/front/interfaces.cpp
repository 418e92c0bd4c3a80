#include <vexa/front/DullVEXAGCEssenceKeyClassifier.h>
#include <vexa/front/DullVEXAMetadataHandler.h>
#include <vexa/front/VEXAGCEssenceKeyClassifier.h>
#include <vexa/front/VEXAMetadataHandler.h>
#include <vexa/front/VEXAReader.h>
#include <vexa/front/VEXAWriter.h>

inline namespace vexa_toolkit {

VEXAReader::~VEXAReader() = default;
VEXAWriter::~VEXAWriter() = default;
VEXAMetadataHandler::~VEXAMetadataHandler() = default;
VEXAGCEssenceKeyClassifier::~VEXAGCEssenceKeyClassifier() = default;

DullVEXAMetadataHandler::~DullVEXAMetadataHandler() = default;

void DullVEXAMetadataHandler::startMetadata() {}
void DullVEXAMetadataHandler::endMetadata() {}
void DullVEXAMetadataHandler::model(const std::vector<boost::shared_ptr<MetadataRoot>>&) {}
void DullVEXAMetadataHandler::xmlMetadata(const char*, std::size_t) {}

DullVEXAGCEssenceKeyClassifier::~DullVEXAGCEssenceKeyClassifier() = default;

bool DullVEXAGCEssenceKeyClassifier::isEssence(const KLVKey&) {
    return false;
}
bool DullVEXAGCEssenceKeyClassifier::isPicture(const KLVKey&) {
    return false;
}
bool DullVEXAGCEssenceKeyClassifier::isSound(const KLVKey&) {
    return false;
}
bool DullVEXAGCEssenceKeyClassifier::isData(const KLVKey&) {
    return false;
}
bool DullVEXAGCEssenceKeyClassifier::isCompound(const KLVKey&) {
    return false;
}

} // namespace vexa_toolkit
