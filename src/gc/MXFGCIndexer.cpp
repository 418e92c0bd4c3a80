#include "gc/MXFGCIndexer.h"

#include "klv/positionOf.h"
#include "util/check.h"

inline namespace vexa_toolkit {

MXFGCIndexer::MXFGCIndexer(MXFGCStructureHandler& next, const Locator& locator)
    : next_(&next), locator_(&locator) {}

MXFGCIndexer::~MXFGCIndexer() = default;

std::uint64_t MXFGCIndexer::position() const {
    return klvutil::positionOf(*locator_);
}

void MXFGCIndexer::startStream(std::uint64_t kagSize) {
    next_->startStream(kagSize);
}

void MXFGCIndexer::endStream() {
    next_->endStream();
}

void MXFGCIndexer::startEditUnit() {
    editUnitStart_ = position();
    sliceOffsets_.clear();
    isFirstSlice_ = true;
    next_->startEditUnit();
}

void MXFGCIndexer::endEditUnit() {
    next_->endEditUnit();
    indexEditUnit(editUnitStart_, sliceOffsets_);
}

void MXFGCIndexer::startSlice() {
    if (isFirstSlice_) {
        isFirstSlice_ = false;
    } else {
        const std::uint64_t offset = position() - editUnitStart_;
        util::check(offset <= UINT32_MAX, "valid slice offset");
        sliceOffsets_.push_back(static_cast<std::uint32_t>(offset));
    }
    next_->startSlice();
}

void MXFGCIndexer::endSlice() {
    next_->endSlice();
}

void MXFGCIndexer::startFixedElement(std::uint64_t length) {
    next_->startFixedElement(length);
}

void MXFGCIndexer::endFixedElement() {
    next_->endFixedElement();
}

void MXFGCIndexer::startAlignedElement(std::uint64_t alignment) {
    next_->startAlignedElement(alignment);
}

void MXFGCIndexer::endAlignedElement() {
    next_->endAlignedElement();
}

} // namespace vexa_toolkit
