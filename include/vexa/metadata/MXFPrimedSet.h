#pragma once

#include <vexa/klv/KLVKey.h>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <ios>
#include <list>
#include <map>
#include <vector>

inline namespace vexa_toolkit {

class MetadataRoot;

/// A local set of header metadata (SMPTE 377M), its tags resolved through the primer.
struct MXFPrimedSet {
    /// The set key as it stands in the file, or as a factory gives it.
    KLVKey key;
    /// The value of each property, as on the wire; it may be empty.
    std::map<KLVKey, std::vector<std::uint8_t>> properties;
    /// Of the byte behind the set in its stream; -1 if it isn't known.
    std::streampos position = std::streampos(std::streamoff(-1));
    /// The objects that the set refers to strongly, in the order of its properties. Only a set that
    /// is to be written has them.
    std::list<boost::shared_ptr<const MetadataRoot>> references;
};

} // namespace vexa_toolkit
