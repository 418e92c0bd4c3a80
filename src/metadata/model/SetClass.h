#pragma once

#include "klv/keyLiteral.h"
#include "metadata/model/MetadataProperty.h"

#include <vexa/metadata/MetadataRoot.h>

#include <initializer_list>
#include <type_traits>
#include <typeinfo>
#include <vector>

inline namespace vexa_toolkit {

namespace metadata {

using klvutil::operator""_key;

class SetClass;

/// What there is to know of a class apart from its properties.
struct SetTraits {
    const char* className;
    /// Null for MetadataRoot.
    const SetClass* base;
    KLVKey key;
    const std::type_info* type;
    bool (*isBaseOf)(const MetadataRoot* object);
    /// Null for an abstract class.
    boost::shared_ptr<MetadataRoot> (*create)();
    /// Items may be longer than 65,535 bytes: the set then has BER lengths.
    bool allowsBERLengths = false;
    /// Items are written in the order of the rows, not in that of their keys.
    bool keepsRowOrder = false;
};

/// Base is void for MetadataRoot.
template <class Set, class Base> SetTraits abstractSet(const KLVKey& key) {
    SetTraits traits{
        Set::className,
        nullptr,
        key,
        &typeid(Set),
        [](const MetadataRoot* object) { return dynamic_cast<const Set*>(object) != nullptr; },
        nullptr};
    if constexpr (!std::is_void_v<Base>) {
        static_assert(std::is_base_of_v<Base, Set>, "Base is the class's base");
        traits.base = &Base::setClass();
    }
    return traits;
}

template <class Set, class Base> SetTraits concreteSet(const KLVKey& key) {
    SetTraits traits = abstractSet<Set, Base>(key);
    traits.create = [] { return boost::shared_ptr<MetadataRoot>(Set::create()); };
    return traits;
}

/// A class of sets as its factory needs it: key and properties, in the order of coding, those of
/// its bases excepted.
class SetClass {
public:
    SetClass(const SetTraits& traits, std::initializer_list<MetadataProperty> properties = {})
        : traits_(traits), properties_(properties) {
        for (MetadataProperty& property : properties_) {
            property.setClassName(traits.className);
        }
    }

    const SetTraits& traits() const { return traits_; }
    const std::vector<MetadataProperty>& properties() const { return properties_; }

private:
    SetTraits traits_;
    std::vector<MetadataProperty> properties_;
};

} // namespace metadata

/// A property's member and name, at the beginning of its row.
#define VEXA_MEMBER(name) &Self::name##_, #name

/// What a class defines beside its constructor and its table of properties.
#define VEXA_DEFINE_CONCRETE_CLASS(Class)                                                          \
    boost::shared_ptr<Class> Class::create() {                                                     \
        return boost::shared_ptr<Class>(new Class);                                                \
    }                                                                                              \
    Class::~Class() = default

#define VEXA_DEFINE_SET_FACTORY(Class)                                                             \
    Class##Factory::Class##Factory() {                                                             \
        add(Class::setClass());                                                                    \
    }                                                                                              \
    Class##Factory::~Class##Factory() = default

/// The same for class and factory together.
#define VEXA_DEFINE_ABSTRACT_SET(Class)                                                            \
    Class::~Class() = default;                                                                     \
    VEXA_DEFINE_SET_FACTORY(Class)

#define VEXA_DEFINE_CONCRETE_SET(Class)                                                            \
    VEXA_DEFINE_CONCRETE_CLASS(Class);                                                             \
    VEXA_DEFINE_SET_FACTORY(Class)

} // namespace vexa_toolkit
