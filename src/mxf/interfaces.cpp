#include <vexa/mxf/DullMXFStructureHandler.h>
#include <vexa/mxf/MXFStructureHandler.h>

inline namespace vexa_toolkit {

MXFStructureHandler::~MXFStructureHandler() = default;
DullMXFStructureHandler::~DullMXFStructureHandler() = default;

void DullMXFStructureHandler::runIn(std::uint64_t) {}
void DullMXFStructureHandler::startStructure() {}
void DullMXFStructureHandler::endStructure(bool) {}
void DullMXFStructureHandler::startPartition(const KLVKey&, const MXFPartitionPack&,
                                             std::uint64_t) {}
void DullMXFStructureHandler::endPartition(const KLVKey&) {}
void DullMXFStructureHandler::randomIndex(const MXFRandomIndex&) {}

} // namespace vexa_toolkit
