#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

#include <boost/smart_ptr/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

inline namespace vexa_toolkit {

class MetadataRoot;

namespace metadata {

/// What a property's text stands for.
enum class ValueKind {
    /// An integer or an enumeration, in decimal digits.
    Number,
    /// "true" or "false".
    Boolean,
    /// A string, in UTF-8 as toUtf8() gives it.
    String,
    /// A label or another key, as labelText() gives it.
    Label,
    /// Rationals, timestamps, UMIDs and product versions as toString() gives them; UIDs as in
    /// "ADAB4424-2F25-4DC7-92FF-000C00000000"; a component of a pixel with its depth, as in "R:8";
    /// bytes in hexadecimal.
    Other,
};

/// Is told the properties of an object. Each function does nothing until it is overridden. `name`
/// is the property's own, as in "trackID"; the values live for the call.
class VEXA_EXPORT PropertyVisitor {
public:
    virtual ~PropertyVisitor();

    virtual void value(const char* name, ValueKind kind, const std::string& text);
    /// A property that holds several values, perhaps none.
    virtual void values(const char* name, ValueKind kind, const std::vector<std::string>& texts);

    /// An object that this one owns.
    virtual void object(const char* name, const boost::shared_ptr<const MetadataRoot>& object);
    /// A property that holds several such, perhaps none.
    virtual void objects(const char* name,
                         const std::vector<boost::shared_ptr<const MetadataRoot>>& objects);
    /// An object that is referred to and not owned.
    virtual void reference(const char* name, const boost::shared_ptr<const MetadataRoot>& target);

    /// A property that the class doesn't know.
    virtual void darkValue(const KLVKey& key, const std::vector<std::uint8_t>& bytes);
    /// Another, that is known to hold an object of this one's own.
    virtual void darkObject(const KLVKey& key, const boost::shared_ptr<const MetadataRoot>& object);
};

/// Tells a visitor the properties of one object, whatever its class: those of its bases first, in
/// the order of SMPTE 377M's tables, dark ones last, by their keys. Absent properties are left out.
///
/// The objects that it owns are told, not entered: a model may be deeper than the stack, so that a
/// walk through one keeps a list of what is still to be visited.
VEXA_EXPORT void visitProperties(const MetadataRoot& object, PropertyVisitor& visitor);

} // namespace metadata

} // namespace vexa_toolkit
