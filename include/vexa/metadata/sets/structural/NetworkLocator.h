#pragma once

#include <vexa/metadata/sets/structural/GenericLocator.h>

#include <string>

inline namespace vexa_toolkit {

/// A place on a network or in a file system (SMPTE 377M, NetworkLocator).
class VEXA_EXPORT NetworkLocator : public GenericLocator {
    VEXA_CONCRETE_SET(NetworkLocator);

    /// An absolute or relative URL.
    VEXA_REQUIRED(std::wstring, URLString, urlString);
};

VEXA_SET_FACTORY(NetworkLocator, GenericLocator);

} // namespace vexa_toolkit
