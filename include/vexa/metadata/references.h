#pragma once

#include <vexa/Export.h>

#include <boost/optional/optional.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>

#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

inline namespace vexa_toolkit {

class MetadataRoot;

/// What strong references are made of.
namespace metadata {

/// Drops a reference. Where it is the last one, what the object itself refers to is dropped after
/// it, not within it: a model may be deeper than the stack.
VEXA_EXPORT void drop(boost::shared_ptr<const void> object) noexcept;

/// The owner's MetadataRoot::swapOwnership.
VEXA_EXPORT void swapOwnership(MetadataRoot& owner,
                               const boost::shared_ptr<MetadataRoot>& oldObject,
                               const boost::shared_ptr<MetadataRoot>& newObject);

[[noreturn]] VEXA_EXPORT void failInvalidIndex();

// Ownership changes first: where it may not, nothing does.

/// A reference to an object that `owner`, the object that this is a member of, owns.
template <class Target> class StrongReference {
public:
    StrongReference() = default;
    StrongReference(const StrongReference&) = delete;
    StrongReference& operator=(const StrongReference&) = delete;
    ~StrongReference() { drop(std::move(target_)); }

    void set(MetadataRoot& owner, const boost::shared_ptr<Target>& target) {
        swapOwnership(owner, target_, target);
        target_ = target;
    }
    const boost::shared_ptr<Target>& get() const { return target_; }

private:
    boost::shared_ptr<Target> target_;
};

template <class Target> class OptionalStrongReference {
public:
    OptionalStrongReference() = default;
    OptionalStrongReference(const OptionalStrongReference&) = delete;
    OptionalStrongReference& operator=(const OptionalStrongReference&) = delete;
    ~OptionalStrongReference() {
        if (target_.has_value()) {
            drop(std::move(*target_));
        }
    }

    void set(MetadataRoot& owner, const boost::shared_ptr<Target>& target) {
        swapOwnership(owner, target_.value_or(nullptr), target);
        target_ = target;
    }
    void remove(MetadataRoot& owner) {
        swapOwnership(owner, target_.value_or(nullptr), nullptr);
        target_ = boost::none;
    }
    const boost::optional<boost::shared_ptr<Target>>& get() const { return target_; }

private:
    boost::optional<boost::shared_ptr<Target>> target_;
};

template <class Target> class StrongReferenceVector {
public:
    StrongReferenceVector() = default;
    StrongReferenceVector(const StrongReferenceVector&) = delete;
    StrongReferenceVector& operator=(const StrongReferenceVector&) = delete;
    ~StrongReferenceVector() {
        for (boost::shared_ptr<Target>& target : targets_) {
            drop(std::move(target));
        }
    }

    void insert(MetadataRoot& owner, std::size_t index, const boost::shared_ptr<Target>& target) {
        requireIndex(index <= targets_.size());
        if (targets_.size() == targets_.capacity()) {
            targets_.reserve(2 * targets_.size() + 1); // nothing may fail once the target is owned
        }
        swapOwnership(owner, nullptr, target);
        targets_.insert(targets_.begin() + static_cast<std::ptrdiff_t>(index), target);
    }
    void remove(MetadataRoot& owner, std::size_t index) {
        swapOwnership(owner, at(index), nullptr);
        targets_.erase(targets_.begin() + static_cast<std::ptrdiff_t>(index));
    }
    const boost::shared_ptr<Target>& at(std::size_t index) const {
        requireIndex(index < targets_.size());
        return targets_[index];
    }
    std::size_t size() const { return targets_.size(); }
    const std::vector<boost::shared_ptr<Target>>& targets() const { return targets_; }

private:
    static void requireIndex(bool valid) {
        if (!valid) {
            failInvalidIndex();
        }
    }

    std::vector<boost::shared_ptr<Target>> targets_;
};

/// Objects that are referred to, for reading only: a range of boost::shared_ptr<const Target>.
template <class Target> class ConstObjects {
public:
    class iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = boost::shared_ptr<const Target>;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = value_type;

        value_type operator*() const { return *at_; }
        iterator& operator++() {
            ++at_;
            return *this;
        }
        bool operator==(const iterator& other) const { return at_ == other.at_; }
        bool operator!=(const iterator& other) const { return at_ != other.at_; }

    private:
        friend ConstObjects;
        using Place = typename std::vector<boost::shared_ptr<Target>>::const_iterator;
        explicit iterator(Place at) : at_(at) {}

        Place at_;
    };

    /// The targets outlive the range, and stay as they are.
    explicit ConstObjects(const std::vector<boost::shared_ptr<Target>>& targets)
        : targets_(&targets) {}

    iterator begin() const { return iterator(targets_->begin()); }
    iterator end() const { return iterator(targets_->end()); }
    std::size_t size() const { return targets_->size(); }
    bool empty() const { return targets_->empty(); }

private:
    const std::vector<boost::shared_ptr<Target>>* targets_;
};

} // namespace metadata

} // namespace vexa_toolkit
