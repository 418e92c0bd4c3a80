#include "metadata/model/danglingReferences.h"

#include "util/check.h"

#include <boost/make_shared.hpp>

#include <utility>

inline namespace vexa_toolkit {

namespace metadata {

dangling_ref_t::dangling_ref_t(boost::shared_ptr<MetadataRoot> owner, const ReferenceSlot& slot)
    : owner_(std::move(owner)), slot_(&slot) {}

dangling_ref_t::~dangling_ref_t() = default;

bool dangling_ref_t::isStrong() const {
    return slot_->isStrong();
}

void dangling_ref_t::resolve(const boost::shared_ptr<MetadataRoot>& target) {
    slot_->place(*owner_, target, 0);
}

std::size_t PlacedElements::countBefore(std::size_t element) const {
    std::size_t count = 0;
    for (std::size_t i = element; i > 0; i &= i - 1) {
        count += tree_[i - 1];
    }
    return count;
}

void PlacedElements::add(std::size_t element) {
    for (std::size_t i = element + 1; i <= tree_.size(); i += i & (~i + 1)) {
        ++tree_[i - 1];
    }
}

dangling_vector_ref_t::dangling_vector_ref_t(boost::shared_ptr<MetadataRoot> owner,
                                             const ReferenceSlot& slot,
                                             boost::shared_ptr<PlacedElements> placed,
                                             std::size_t element)
    : owner_(std::move(owner)), slot_(&slot), placed_(std::move(placed)), element_(element) {}

dangling_vector_ref_t::~dangling_vector_ref_t() = default;

bool dangling_vector_ref_t::isStrong() const {
    return slot_->isStrong();
}

void dangling_vector_ref_t::resolve(const boost::shared_ptr<MetadataRoot>& target) {
    util::check(!resolved_, "is still dangling");
    slot_->place(*owner_, target, placed_->countBefore(element_));
    placed_->add(element_);
    resolved_ = true;
}

void addVectorReferences(const std::vector<MXFUID>& targets,
                         const boost::shared_ptr<MetadataRoot>& owner, const ReferenceSlot& slot,
                         MXFDanglingReferences& references) {
    const auto placed = boost::make_shared<PlacedElements>(targets.size());
    for (std::size_t i = 0; i < targets.size(); ++i) {
        references.emplace(targets[i],
                           boost::make_shared<dangling_vector_ref_t>(owner, slot, placed, i));
    }
}

dangling_dark_ref_t::dangling_dark_ref_t(boost::shared_ptr<MetadataRoot> owner, const KLVKey& key)
    : owner_(std::move(owner)), key_(key) {}

dangling_dark_ref_t::~dangling_dark_ref_t() = default;

bool dangling_dark_ref_t::isStrong() const {
    return true;
}

void dangling_dark_ref_t::resolve(const boost::shared_ptr<MetadataRoot>& target) {
    util::check(target != nullptr, "object is value type");
    owner_->setReferenceDarkProperty(key_, target);
}

} // namespace metadata

} // namespace vexa_toolkit
