#include "util/check.h"

#include <vexa/gc/MXFGCElementAligner.h>

inline namespace vexa_toolkit {

MXFGCElementAligner::MXFGCElementAligner(MXFGCStructureHandler& structure,
                                         MXFGCEssenceHandler& essence)
    : structure_(&structure), essence_(&essence) {}

MXFGCElementAligner::~MXFGCElementAligner() = default;

void MXFGCElementAligner::startStream(std::uint64_t) {
    structure_->startStream(kagSize_);
}

void MXFGCElementAligner::endStream() {
    structure_->endStream();
}

/// The first aligned element is the system item's; without one it stays empty, and gets no fill.
void MXFGCElementAligner::startEditUnit() {
    structure_->startEditUnit();
    structure_->startSlice();
    structure_->startAlignedElement(0);
}

void MXFGCElementAligner::endEditUnit() {
    structure_->endAlignedElement();
    structure_->endSlice();
    structure_->endEditUnit();
}

void MXFGCElementAligner::startSlice() {}
void MXFGCElementAligner::endSlice() {}
void MXFGCElementAligner::startFixedElement(std::uint64_t) {}
void MXFGCElementAligner::endFixedElement() {}
void MXFGCElementAligner::startAlignedElement(std::uint64_t) {}
void MXFGCElementAligner::endAlignedElement() {}

bool MXFGCElementAligner::wantsEssence(const KLVKey& key, std::uint64_t length,
                                       std::uint8_t** buffer) {
    structure_->endAlignedElement();
    structure_->startAlignedElement(0);
    return essence_->wantsEssence(key, length, buffer);
}

void MXFGCElementAligner::pictureElement(const KLVKey& key, const std::uint8_t* data,
                                         std::uint64_t length) {
    essence_->pictureElement(key, data, length);
}

void MXFGCElementAligner::soundElement(const KLVKey& key, const std::uint8_t* data,
                                       std::uint64_t length) {
    essence_->soundElement(key, data, length);
}

void MXFGCElementAligner::dataElement(const KLVKey& key, const std::uint8_t* data,
                                      std::uint64_t length) {
    essence_->dataElement(key, data, length);
}

void MXFGCElementAligner::compoundElement(const KLVKey& key, const std::uint8_t* data,
                                          std::uint64_t length) {
    essence_->compoundElement(key, data, length);
}

void MXFGCElementAligner::essenceLengthForm(std::uint8_t form) {
    essence_->essenceLengthForm(form);
}

MXFGCChunkedEssenceHandler& MXFGCElementAligner::chunked() {
    auto* const handler = dynamic_cast<MXFGCChunkedEssenceHandler*>(essence_);
    util::check(handler != nullptr, "chunked essence handler is present");
    return *handler;
}

bool MXFGCElementAligner::wantsChunkedEssence(const KLVKey& key, std::uint64_t length) {
    return chunked().wantsChunkedEssence(key, length);
}

void MXFGCElementAligner::endChunkedEssence(const KLVKey& key) {
    chunked().endChunkedEssence(key);
}

} // namespace vexa_toolkit
