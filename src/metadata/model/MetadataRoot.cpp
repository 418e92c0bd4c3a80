#include "metadata/model/SetClass.h"
#include "metadata/primed/indexProperties.h"
#include "util/check.h"

#include <vexa/metadata/MetadataRoot.h>

#include <utility>

inline namespace vexa_toolkit {

namespace {

/// Owners among which a circle is looked for; an object below more can't take one with children.
constexpr std::size_t maximumDepth = 1000;

/// The target of a reference property; null for one that holds bytes.
boost::shared_ptr<MetadataRoot> targetOf(const MetadataRoot::DarkProperty& property) {
    const auto* const target = std::get_if<boost::shared_ptr<MetadataRoot>>(&property);
    return target == nullptr ? nullptr : *target;
}

} // namespace

const metadata::SetClass& MetadataRoot::setClass() {
    using Self = MetadataRoot;
    static const metadata::SetClass definition(
        metadata::abstractSet<MetadataRoot, void>({}),
        {{VEXA_MEMBER(instanceUID), metadata::indexProperties::instanceUID}});
    return definition;
}

const char* MetadataRoot::getClassName() const {
    return getSetClass().traits().className;
}

MetadataRoot::MetadataRoot() = default;

MetadataRoot::~MetadataRoot() {
    for (auto& [key, property] : darkProperties_) {
        if (auto* const target = std::get_if<boost::shared_ptr<MetadataRoot>>(&property)) {
            metadata::drop(std::move(*target));
        }
    }
}

void MetadataRoot::takeOwnership(const boost::shared_ptr<MetadataRoot>& object) {
    swapOwnership(nullptr, object);
}

void MetadataRoot::releaseOwnership(const boost::shared_ptr<MetadataRoot>& object) {
    swapOwnership(object, nullptr);
}

void MetadataRoot::swapOwnership(const boost::shared_ptr<MetadataRoot>& oldObject,
                                 const boost::shared_ptr<MetadataRoot>& newObject) {
    util::check(oldObject == nullptr || owns(*oldObject), "current owner is this");
    util::check(newObject == nullptr || !newObject->hasOwner(), "object is not owned");
    util::check(newObject == nullptr || (newObject.get() != this && !isOwnedBy(*newObject)),
                "object does not own this");
    const boost::weak_ptr<MetadataRoot> self = shared_from_this();
    if (oldObject != nullptr) {
        oldObject->owner_.reset();
        --ownedCount_;
    }
    if (newObject != nullptr) {
        newObject->owner_ = self;
        newObject->ownerAddress_ = this;
        ++ownedCount_;
    }
}

void MetadataRoot::swapOwnership(const KLVKey& key,
                                 const boost::shared_ptr<MetadataRoot>& newObject) {
    const auto present = darkProperties_.find(key);
    swapOwnership(present == darkProperties_.end() ? nullptr : targetOf(present->second),
                  newObject);
}

bool MetadataRoot::isOwnedBy(const MetadataRoot& object) const {
    if (object.ownedCount_ == 0) {
        return false;
    }
    std::size_t depth = 0;
    for (const MetadataRoot* owner = liveOwner(); owner != nullptr; owner = owner->liveOwner()) {
        if (owner == &object) {
            return true;
        }
        util::check(++depth <= maximumDepth, "ownership is not too deep");
    }
    return false;
}

void MetadataRoot::setDarkProperty(const KLVKey& key, const std::vector<std::uint8_t>& value) {
    swapOwnership(key, nullptr);
    darkProperties_[key] = value;
}

void MetadataRoot::setReferenceDarkProperty(const KLVKey& key,
                                            const boost::shared_ptr<MetadataRoot>& object) {
    swapOwnership(key, object);
    darkProperties_[key] = object;
}

const MetadataRoot::DarkProperty& MetadataRoot::darkProperty(const KLVKey& key) const {
    const auto present = darkProperties_.find(key);
    util::check(present != darkProperties_.end(), "property is present");
    return present->second;
}

const std::vector<std::uint8_t>& MetadataRoot::getDarkProperty(const KLVKey& key) const {
    const auto* const value = std::get_if<std::vector<std::uint8_t>>(&darkProperty(key));
    util::check(value != nullptr, "property is a non-reference value");
    return *value;
}

boost::shared_ptr<MetadataRoot> MetadataRoot::getReferenceDarkProperty(const KLVKey& key) const {
    return targetOf(darkProperty(key));
}

const boost::shared_ptr<MetadataRoot>&
MetadataRoot::requireReferenceDarkProperty(const KLVKey& key) const {
    const auto* const target = std::get_if<boost::shared_ptr<MetadataRoot>>(&darkProperty(key));
    util::check(target != nullptr, "property is a reference value");
    return *target;
}

void MetadataRoot::removeDarkProperty(const KLVKey& key) {
    swapOwnership(key, nullptr);
    darkProperties_.erase(key);
}

bool MetadataRoot::hasDarkProperty(const KLVKey& key) const {
    return darkProperties_.count(key) != 0;
}

bool MetadataRoot::isReferenceDarkProperty(const KLVKey& key) const {
    return std::holds_alternative<boost::shared_ptr<MetadataRoot>>(darkProperty(key));
}

const std::streampos& MetadataRoot::getStreampos() const {
    util::check(streampos_.has_value(), "streampos is present");
    return *streampos_;
}

} // namespace vexa_toolkit
