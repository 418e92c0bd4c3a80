#include "gc/MXFGCMuxer.h"

inline namespace vexa_toolkit {

MXFGCMuxer::StreamStarter::StreamStarter(KLVMonitor& monitor, MXFGCEssenceCoder& essenceCoder)
    : MXFGCStructurePadder(monitor, monitor.getLocator()), essenceCoder_(essenceCoder) {}

void MXFGCMuxer::StreamStarter::startStream(std::uint64_t kagSize) {
    essenceCoder_.startStream();
    MXFGCStructurePadder::startStream(kagSize);
}

MXFGCMuxer::MXFGCMuxer()
    : structurePadder_(monitor_, essenceCoder_), systemCoder_(monitor_), essenceCoder_(monitor_) {}

MXFGCMuxer::MXFGCMuxer(KLVHandler& next) : MXFGCMuxer() {
    monitor_.setHandler(&next);
}

MXFGCMuxer::~MXFGCMuxer() = default;

void MXFGCMuxer::setKLVHandler(KLVHandler* handler) {
    monitor_.setHandler(handler);
}

KLVHandler& MXFGCMuxer::getKLVHandler() {
    return monitor_.getHandler();
}

MXFGCStructureHandler& MXFGCMuxer::getStructureHandler() {
    return structurePadder_;
}

MXFGCSystemHandler& MXFGCMuxer::getSystemHandler() {
    return systemCoder_;
}

MXFGCEssenceCoder& MXFGCMuxer::getEssenceHandler() {
    return essenceCoder_;
}

KLVMonitor::MonitoredLocator& MXFGCMuxer::getLocator() {
    return monitor_.getLocator();
}

} // namespace vexa_toolkit
