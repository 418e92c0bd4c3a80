#pragma once

#include <vexa/Export.h>
#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/KLVKey.h>
#include <vexa/klv/MXFUID.h>
#include <vexa/metadata/MXFPrimedSet.h>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <map>
#include <typeinfo>

inline namespace vexa_toolkit {

class MetadataRoot;

/// A reference that a set holds, waiting for its target.
class VEXA_EXPORT dangling_ref_base {
public:
    virtual ~dangling_ref_base();

    /// True if the target is to be owned.
    virtual bool isStrong() const = 0;

    /// Hands the target to the object that refers to it, once. Throws util::assertion_failure
    /// "object is value type" for a target of another class, "is still dangling" for an element of
    /// a vector that was placed before, and what MetadataRoot::swapOwnership throws.
    virtual void resolve(const boost::shared_ptr<MetadataRoot>& target) = 0;
};

/// References by the instance UID of their target.
using MXFDanglingReferences = std::multimap<MXFUID, boost::shared_ptr<dangling_ref_base>>;

/// A set as an object, and the references of the set that are still to be resolved.
struct MXFParsedSet {
    boost::shared_ptr<MetadataRoot> object;
    MXFDanglingReferences references;
};

/// Turns local sets into objects and back, for one class of sets or for many.
class VEXA_EXPORT MXFMetadataFactory {
public:
    virtual ~MXFMetadataFactory();

    /// Is told what is wrong with the values of sets. May be null.
    virtual void setErrorHandler(boost::shared_ptr<ErrorHandler> errorHandler) = 0;

    virtual bool canParse(const KLVKey& setKey) = 0;
    /// Only for a set with a key that `canParse` agreed to.
    virtual MXFParsedSet parse(const MXFPrimedSet& set) = 0;
    /// The class that the set of that key becomes.
    virtual const std::type_info& getType(const KLVKey& setKey) = 0;

    virtual bool canCode(const std::type_info& type) = 0;
    /// Only for an object of a class that `canCode` agreed to. Throws util::assertion_failure where
    /// a reference that the class requires is null.
    virtual MXFPrimedSet code(boost::shared_ptr<const MetadataRoot> object) = 0;
    /// The tags of all properties of a class and its bases; 0 where it isn't fixed.
    virtual const std::map<KLVKey, std::uint16_t>& getSetPrimer(const std::type_info& type) = 0;
    virtual const KLVKey& getSetKey(const std::type_info& type) = 0;
};

} // namespace vexa_toolkit
