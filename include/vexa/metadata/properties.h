#pragma once

#include <vexa/Export.h>
#include <vexa/metadata/references.h>

#include <boost/optional/optional.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>

#include <cstddef>
#include <vector>

inline namespace vexa_toolkit {

// How a set class declares its properties: one line for each, of one of six patterns. `name` is the
// property's name, `Name` its form in the accessors; a reference's `Type` is the class of its
// target. What goes wrong is util::assertion_failure. What `find` answers points into the object,
// until the property is set or removed.

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

/// A value that may be absent. Getting it then fails the check "Class.name is present"; finding it
/// gives null.
///
///     void setName(const Type&);
///     const Type& getName() const;
///     const Type* findName() const;
///     void removeName();
///     bool hasName() const;
#define VEXA_OPTIONAL(Type, Name, name)                                                            \
public:                                                                                            \
    const Type* find##Name() const {                                                               \
        return name##_.get_ptr();                                                                  \
    }                                                                                              \
    VEXA_OPTIONAL_MEMBER(Type, Name, name)

/// A reference to an object that isn't owned, and that may be absent.
///
///     void setName(const boost::shared_ptr<Type>&);
///     const boost::shared_ptr<Type>& getName() const;
///     boost::shared_ptr<Type> findName() const;
///     void removeName();
///     bool hasName() const;
#define VEXA_OPTIONAL_WEAK(Type, Name, name)                                                       \
public:                                                                                            \
    boost::shared_ptr<Type> find##Name() const {                                                   \
        return name##_.value_or(nullptr);                                                          \
    }                                                                                              \
    VEXA_OPTIONAL_MEMBER(boost::shared_ptr<Type>, Name, name)

/// What the last two have in common.
#define VEXA_OPTIONAL_MEMBER(Type, Name, name)                                                     \
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

/// The same, but it may be absent. Getting it then fails the check "Class.name is present"; finding
/// it gives null.
///
///     void setName(const boost::shared_ptr<Type>&);
///     boost::shared_ptr<Type> getName();
///     boost::shared_ptr<const Type> getName() const;
///     boost::shared_ptr<Type> findName();
///     boost::shared_ptr<const Type> findName() const;
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
    boost::shared_ptr<Type> find##Name() {                                                         \
        return name##_.get().value_or(nullptr);                                                    \
    }                                                                                              \
    boost::shared_ptr<const Type> find##Name() const {                                             \
        return name##_.get().value_or(nullptr);                                                    \
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

/// References to objects of this one's own; `Name` is the singular, `Names` the plural, `names` the
/// property's name. The check of an index is "valid index". A range holds until a reference is
/// inserted or removed.
///
///     const std::vector<boost::shared_ptr<Type>>& getNames();
///     metadata::ConstObjects<Type> getNames() const;
///     void insertNameAt(std::size_t index, const boost::shared_ptr<Type>&);
///     void removeNameAt(std::size_t index);
///     void addName(const boost::shared_ptr<Type>&);
///     boost::shared_ptr<Type> getNameAt(std::size_t index);
///     boost::shared_ptr<const Type> getNameAt(std::size_t index) const;
///     std::size_t getNameCount() const;
#define VEXA_STRONG_VECTOR(Type, Name, Names, names)                                               \
public:                                                                                            \
    const std::vector<boost::shared_ptr<Type>>& get##Names() {                                     \
        return names##_.targets();                                                                 \
    }                                                                                              \
    metadata::ConstObjects<Type> get##Names() const {                                              \
        return metadata::ConstObjects<Type>(names##_.targets());                                   \
    }                                                                                              \
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
    const metadata::SetClass& getSetClass() const override {                                       \
        return setClass();                                                                         \
    }                                                                                              \
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

} // namespace metadata

} // namespace vexa_toolkit
