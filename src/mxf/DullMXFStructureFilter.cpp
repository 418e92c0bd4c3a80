#include "mxf/DullMXFStructureFilter.h"

inline namespace vexa_toolkit {

DullMXFStructureFilter::DullMXFStructureFilter(MXFStructureHandler& next) : next_(&next) {}

DullMXFStructureFilter::~DullMXFStructureFilter() = default;

void DullMXFStructureFilter::runIn(std::uint64_t length) {
    next_->runIn(length);
}

void DullMXFStructureFilter::startStructure() {
    next_->startStructure();
}

void DullMXFStructureFilter::endStructure(bool aborted) {
    next_->endStructure(aborted);
}

void DullMXFStructureFilter::startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                                            std::uint64_t packByteCount) {
    next_->startPartition(key, pack, packByteCount);
}

void DullMXFStructureFilter::endPartition(const KLVKey& key) {
    next_->endPartition(key);
}

void DullMXFStructureFilter::randomIndex(const MXFRandomIndex& table) {
    next_->randomIndex(table);
}

} // namespace vexa_toolkit
