#pragma once

#include <vexa/Export.h>

#include <boost/optional/optional.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>

#include <cstddef>
#include <utility>
#include <vector>

inline namespace vexa_toolkit {

// How a set class declares its properties: one line for each, of one of six patterns. `name` is the
// property's name, `Name` its form in the accessors; a reference's `Type` is the class of its
// target. What goes wrong is util::assertion_failure.

/// A value that is always there: its type's zero, or the default that the class gives it, until it
/// is set.
///
///     void setName(const Type&);
///     const Type& getName() const;
#define VEXA_REQUIRED(Type, Name, name)                                                            \
public:                                                                                            \
    void set##Name(const Type& value) {                                                            \
        name##_ = value;                                                                           \
    }                                                                                              \
    const Type& get##Name() const {                                                                \
        return name##_;                                                                            \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    Type name##_ {}

/// A value that may be absent. Getting it then fails the check "Class.name is present".
///
///     void setName(const Type&);
///     const Type& getName() const;
///     void removeName();
///     bool hasName() const;
#define VEXA_OPTIONAL(Type, Name, name)                                                            \
public:                                                                                            \
    void set##Name(const Type& value) {                                                            \
        name##_ = value;                                                                           \
    }                                                                                              \
    const Type& get##Name() const {                                                                \
        return metadata::requirePresent(name##_, className, #name);                                \
    }                                                                                              \
    void remove##Name() {                                                                          \
        name##_ = boost::none;                                                                     \
    }                                                                                              \
    bool has##Name() const {                                                                       \
        return name##_.has_value();                                                                \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    boost::optional<Type> name##_

/// A reference to an object that isn't owned, and that may be absent.
///
///     void setName(const boost::shared_ptr<Type>&);
///     const boost::shared_ptr<Type>& getName() const;
///     void removeName();
///     bool hasName() const;
#define VEXA_OPTIONAL_WEAK(Type, Name, name) VEXA_OPTIONAL(boost::shared_ptr<Type>, Name, name)

/// A reference to an object of this one's own, null until it is set.
///
///     void setName(const boost::shared_ptr<Type>&);
///     boost::shared_ptr<Type> getName();
///     boost::shared_ptr<const Type> getName() const;
#define VEXA_REQUIRED_STRONG(Type, Name, name)                                                     \
public:                                                                                            \
    void set##Name(const boost::shared_ptr<Type>& object) {                                        \
        name##_.set(*this, object);                                                                \
    }                                                                                              \
    boost::shared_ptr<Type> get##Name() {                                                          \
        return name##_.get();                                                                      \
    }                                                                                              \
    boost::shared_ptr<const Type> get##Name() const {                                              \
        return name##_.get();                                                                      \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    metadata::StrongReference<Type> name##_

/// The same, but it may be absent. Getting it then fails the check "Class.name is present".
///
///     void setName(const boost::shared_ptr<Type>&);
///     boost::shared_ptr<Type> getName();
///     boost::shared_ptr<const Type> getName() const;
///     void removeName();
///     bool hasName() const;
#define VEXA_OPTIONAL_STRONG(Type, Name, name)                                                     \
public:                                                                                            \
    void set##Name(const boost::shared_ptr<Type>& object) {                                        \
        name##_.set(*this, object);                                                                \
    }                                                                                              \
    boost::shared_ptr<Type> get##Name() {                                                          \
        return metadata::requirePresent(name##_.get(), className, #name);                          \
    }                                                                                              \
    boost::shared_ptr<const Type> get##Name() const {                                              \
        return metadata::requirePresent(name##_.get(), className, #name);                          \
    }                                                                                              \
    void remove##Name() {                                                                          \
        name##_.remove(*this);                                                                     \
    }                                                                                              \
    bool has##Name() const {                                                                       \
        return name##_.get().has_value();                                                          \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    metadata::OptionalStrongReference<Type> name##_

/// References to objects of this one's own; `Name` is the singular, `names` the property's name.
/// The check of an index is "valid index".
///
///     void insertNameAt(std::size_t index, const boost::shared_ptr<Type>&);
///     void removeNameAt(std::size_t index);
///     void addName(const boost::shared_ptr<Type>&);
///     boost::shared_ptr<Type> getNameAt(std::size_t index);
///     boost::shared_ptr<const Type> getNameAt(std::size_t index) const;
///     std::size_t getNameCount() const;
#define VEXA_STRONG_VECTOR(Type, Name, names)                                                      \
public:                                                                                            \
    void insert##Name##At(std::size_t index, const boost::shared_ptr<Type>& object) {              \
        names##_.insert(*this, index, object);                                                     \
    }                                                                                              \
    void remove##Name##At(std::size_t index) {                                                     \
        names##_.remove(*this, index);                                                             \
    }                                                                                              \
    void add##Name(const boost::shared_ptr<Type>& object) {                                        \
        names##_.insert(*this, names##_.size(), object);                                           \
    }                                                                                              \
    boost::shared_ptr<Type> get##Name##At(std::size_t index) {                                     \
        return names##_.at(index);                                                                 \
    }                                                                                              \
    boost::shared_ptr<const Type> get##Name##At(std::size_t index) const {                         \
        return names##_.at(index);                                                                 \
    }                                                                                              \
    std::size_t get##Name##Count() const {                                                         \
        return names##_.size();                                                                    \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    metadata::StrongReferenceVector<Type> names##_

/// What every set class begins with. `create()` of a concrete class makes an object with the
/// defaults of its class; it has no instance UID yet.
#define VEXA_ABSTRACT_SET(Class)                                                                   \
public:                                                                                            \
    static constexpr const char* className = #Class;                                               \
    static const metadata::SetClass& setClass();                                                   \
    ~Class() override;                                                                             \
                                                                                                   \
private:                                                                                           \
    using Self = Class;                                                                            \
                                                                                                   \
protected:                                                                                         \
    Class()

#define VEXA_CONCRETE_SET(Class)                                                                   \
public:                                                                                            \
    static boost::shared_ptr<Class> create();                                                      \
    VEXA_ABSTRACT_SET(Class)

/// The factory of a set class, which adds the class's properties to those of its base.
#define VEXA_SET_FACTORY(Class, Base)                                                              \
    class VEXA_EXPORT Class##Factory : public Base##Factory {                                      \
    public:                                                                                        \
        Class##Factory();                                                                          \
        ~Class##Factory() override;                                                                \
    }

class MetadataRoot;

/// What the property patterns are made of.
namespace metadata {

/// Throws util::assertion_failure "Class.name is present".
[[noreturn]] VEXA_EXPORT void failAbsent(const char* className, const char* name);

template <class T>
const T& requirePresent(const boost::optional<T>& value, const char* className, const char* name) {
    if (!value.has_value()) {
        failAbsent(className, name);
    }
    return *value;
}

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

private:
    static void requireIndex(bool valid) {
        if (!valid) {
            failInvalidIndex();
        }
    }

    std::vector<boost::shared_ptr<Target>> targets_;
};

} // namespace metadata

} // namespace vexa_toolkit
