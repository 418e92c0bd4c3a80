#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/klv/MXFUID.h>
#include <vexa/metadata/AES3ChannelStatusData.h>
#include <vexa/metadata/RGBALayout.h>
#include <vexa/metadata/labelName.h>
#include <vexa/metadata/toString.h>
#include <vexa/metadata/visitProperties.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

inline namespace vexa_toolkit {

/// What visitors are told of the values of properties, by type.
namespace metadata {

std::string toString(const MXFUID& uid);
std::string toString(const AES3ChannelStatusData& status);
std::string toString(const std::string& bytes);
std::string toString(const std::vector<std::uint8_t>& bytes);
std::string toString(const RGBALayout::Component& component);

template <class T> constexpr ValueKind kindOf() {
    return std::is_same_v<T, bool>           ? ValueKind::Boolean
           : std::is_integral_v<T>           ? ValueKind::Number
           : std::is_same_v<T, std::wstring> ? ValueKind::String
           : std::is_same_v<T, KLVKey>       ? ValueKind::Label
                                             : ValueKind::Other;
}

template <class T> std::string textOf(const T& value) {
    if constexpr (kindOf<T>() == ValueKind::Boolean) {
        return value ? "true" : "false";
    } else if constexpr (kindOf<T>() == ValueKind::Number) {
        return std::to_string(value);
    } else if constexpr (kindOf<T>() == ValueKind::String) {
        return toUtf8(value);
    } else if constexpr (kindOf<T>() == ValueKind::Label) {
        return labelText(value);
    } else {
        return toString(value);
    }
}

template <class T> void visitValue(PropertyVisitor& visitor, const char* name, const T& value) {
    visitor.value(name, kindOf<T>(), textOf(value));
}

template <class T>
void visitValue(PropertyVisitor& visitor, const char* name, const std::vector<T>& values) {
    std::vector<std::string> texts;
    for (const T& value : values) {
        texts.push_back(textOf(value));
    }
    visitor.values(name, kindOf<T>(), texts);
}

/// All in one.
inline void visitValue(PropertyVisitor& visitor, const char* name,
                       const std::vector<std::uint8_t>& bytes) {
    visitor.value(name, ValueKind::Other, toString(bytes));
}

/// Those that are used.
inline void visitValue(PropertyVisitor& visitor, const char* name, const RGBALayout& layout) {
    std::vector<std::string> texts;
    for (const RGBALayout::Component& component : layout.components) {
        if (component.code != 0) {
            texts.push_back(toString(component));
        }
    }
    visitor.values(name, ValueKind::Other, texts);
}

} // namespace metadata

} // namespace vexa_toolkit
