#include <vexa/front/VEXAGCEssenceKeyClassifier.h>
#include <vexa/front/VEXAMetadataHandler.h>
#include <vexa/front/VEXAReader.h>

VEXAReader::~VEXAReader() = default;
VEXAMetadataHandler::~VEXAMetadataHandler() = default;
VEXAGCEssenceKeyClassifier::~VEXAGCEssenceKeyClassifier() = default;
