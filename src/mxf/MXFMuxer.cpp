#include "mxf/MXFMuxer.h"

inline namespace vexa_toolkit {

MXFMuxer::MXFMuxer()
    : essenceFilter_(monitor_), metadataPadder_(essenceFilter_), indexPadder_(essenceFilter_),
      structureCoder_(monitor_, metadataPadder_, indexPadder_) {}

MXFMuxer::~MXFMuxer() = default;

void MXFMuxer::setHandler(KLVHandler* handler) {
    monitor_.setHandler(handler);
}

KLVHandler& MXFMuxer::getHandler() {
    return monitor_.getHandler();
}

MXFStructureHandler& MXFMuxer::getStructureHandler() {
    return structureCoder_;
}

KLVHandler& MXFMuxer::getMetadataHandler() {
    return metadataPadder_;
}

KLVHandler& MXFMuxer::getIndexHandler() {
    return indexPadder_;
}

KLVHandler& MXFMuxer::getEssenceHandler() {
    return essenceFilter_;
}

} // namespace vexa_toolkit
