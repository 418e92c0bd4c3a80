#include <vexa/gc/system/DullMXFQZProxySystemHandler.h>
#include <vexa/gc/system/DullMXFSDTICPSystemHandler.h>
#include <vexa/gc/system/MXFQZProxySystemHandler.h>
#include <vexa/gc/system/MXFSDTICPSystemHandler.h>

inline namespace vexa_toolkit {

// The destructors anchor each class's run-time type information in this library.

MXFSDTICPSystemHandler::~MXFSDTICPSystemHandler() = default;
MXFQZProxySystemHandler::~MXFQZProxySystemHandler() = default;

DullMXFSDTICPSystemHandler::~DullMXFSDTICPSystemHandler() = default;

void DullMXFSDTICPSystemHandler::systemMetadataPack(const MXFSDTICPSystemMetadata&) {}
void DullMXFSDTICPSystemHandler::packageMetadata(const Items&) {}
void DullMXFSDTICPSystemHandler::pictureMetadata(const Items&) {}
void DullMXFSDTICPSystemHandler::soundMetadata(const Items&) {}
void DullMXFSDTICPSystemHandler::dataMetadata(const Items&) {}
void DullMXFSDTICPSystemHandler::controlData(std::uint32_t, const std::vector<std::uint8_t>&) {}

DullMXFQZProxySystemHandler::~DullMXFQZProxySystemHandler() = default;

void DullMXFQZProxySystemHandler::proxySystemItem(std::uint32_t, const std::vector<MXFTimecode>&) {}

} // namespace vexa_toolkit
