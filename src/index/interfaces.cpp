#include <vexa/index/DullMXFIndexHandler.h>
#include <vexa/index/MXFIndexHandler.h>

inline namespace vexa_toolkit {

MXFIndexHandler::~MXFIndexHandler() = default;

DullMXFIndexHandler::~DullMXFIndexHandler() = default;

void DullMXFIndexHandler::startIndexTable() {}
void DullMXFIndexHandler::endIndexTable() {}
void DullMXFIndexHandler::indexTableSegment(const MXFIndexTableSegment&) {}

} // namespace vexa_toolkit
