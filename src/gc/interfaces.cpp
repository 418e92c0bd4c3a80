#include <vexa/gc/DullMXFGCStructureHandler.h>
#include <vexa/gc/MXFGCChunkedEssenceHandler.h>
#include <vexa/gc/MXFGCEssenceHandler.h>
#include <vexa/gc/MXFGCStructureHandler.h>
#include <vexa/gc/MXFGCSystemHandler.h>

inline namespace vexa_toolkit {

MXFGCStructureHandler::~MXFGCStructureHandler() = default;
MXFGCSystemHandler::~MXFGCSystemHandler() = default;
MXFGCEssenceHandler::~MXFGCEssenceHandler() = default;
MXFGCChunkedEssenceHandler::~MXFGCChunkedEssenceHandler() = default;
DullMXFGCStructureHandler::~DullMXFGCStructureHandler() = default;

void DullMXFGCStructureHandler::startStream(std::uint64_t) {}
void DullMXFGCStructureHandler::endStream() {}
void DullMXFGCStructureHandler::startEditUnit() {}
void DullMXFGCStructureHandler::endEditUnit() {}
void DullMXFGCStructureHandler::startSlice() {}
void DullMXFGCStructureHandler::endSlice() {}
void DullMXFGCStructureHandler::startFixedElement(std::uint64_t) {}
void DullMXFGCStructureHandler::endFixedElement() {}
void DullMXFGCStructureHandler::startAlignedElement(std::uint64_t) {}
void DullMXFGCStructureHandler::endAlignedElement() {}

} // namespace vexa_toolkit
