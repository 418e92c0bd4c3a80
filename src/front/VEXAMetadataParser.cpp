#include "front/VEXAMetadataParser.h"

#include "front/xmlMetadata.h"
#include "klv/gathering.h"
#include "metadata/sets/standardPrimer.h"

inline namespace vexa_toolkit {

VEXAMetadataParser::VEXAMetadataParser(VEXAMetadataHandler& handler, MXFMetadataFactory& factory)
    : xmlHandler_(handler, document_), modelParser_(xmlHandler_, factory),
      parser_(modelParser_, metadata::standardPrimer()) {}

VEXAMetadataParser::~VEXAMetadataParser() = default;

void VEXAMetadataParser::setErrorHandler(ErrorHandler* errorHandler) {
    modelParser_.setErrorHandler(errorHandler);
    parser_.setErrorHandler(errorHandler);
}

KLVHandler& VEXAMetadataParser::getForwardee() {
    return parser_;
}

void VEXAMetadataParser::startStream(bool accurateLengths) {
    inXML_ = false;
    document_.isPending = false;
    KLVForwarder::startStream(accurateLengths);
}

bool VEXAMetadataParser::startIndividualItem(const KLVKey& key, std::uint64_t length,
                                             std::uint8_t** buffer) {
    inXML_ = key == front::xmlMetadataKey;
    if (!inXML_) {
        return KLVForwarder::startIndividualItem(key, length, buffer);
    }
    document_.deliver(xmlHandler_);
    klvutil::startGathering(document_.text, length);
    return true;
}

void VEXAMetadataParser::endIndividualItem(const KLVKey& key) {
    if (!inXML_) {
        KLVForwarder::endIndividualItem(key);
        return;
    }
    inXML_ = false;
    document_.isPending = true;
}

void VEXAMetadataParser::value(const std::uint8_t* data, std::uint64_t size) {
    if (inXML_) {
        klvutil::gather(document_.text, data, size);
    } else {
        KLVForwarder::value(data, size);
    }
}

void VEXAMetadataParser::Document::deliver(VEXAMetadataHandler& handler) {
    if (isPending) {
        isPending = false;
        handler.xmlMetadata(text.empty() ? nullptr : reinterpret_cast<const char*>(text.data()),
                            text.size());
    }
}

VEXAMetadataParser::XMLMetadataHandler::XMLMetadataHandler(VEXAMetadataHandler& handler,
                                                           Document& document)
    : handler_(handler), document_(document) {}

VEXAMetadataParser::XMLMetadataHandler::~XMLMetadataHandler() = default;

void VEXAMetadataParser::XMLMetadataHandler::startMetadata() {
    handler_.startMetadata();
}

void VEXAMetadataParser::XMLMetadataHandler::endMetadata() {
    document_.deliver(handler_);
    handler_.endMetadata();
}

void VEXAMetadataParser::XMLMetadataHandler::model(
    const std::vector<boost::shared_ptr<MetadataRoot>>& roots) {
    handler_.model(roots);
}

void VEXAMetadataParser::XMLMetadataHandler::xmlMetadata(const char* data, std::size_t size) {
    handler_.xmlMetadata(data, size);
}

} // namespace vexa_toolkit
