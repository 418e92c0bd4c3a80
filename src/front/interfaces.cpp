#include <vexa/front/VEXAGCEssenceKeyClassifier.h>
#include <vexa/front/VEXAMetadataHandler.h>
#include <vexa/front/VEXAReader.h>

inline namespace vexa_toolkit {

VEXAReader::~VEXAReader() = default;
VEXAMetadataHandler::~VEXAMetadataHandler() = default;
VEXAGCEssenceKeyClassifier::~VEXAGCEssenceKeyClassifier() = default;

} // namespace vexa_toolkit
