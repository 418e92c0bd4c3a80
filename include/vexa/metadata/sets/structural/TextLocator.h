#pragma once

#include <vexa/metadata/sets/structural/GenericLocator.h>

#include <string>

inline namespace vexa_toolkit {

/// A place where essence is kept, for a human reader (SMPTE 377M, TextLocator).
class VEXA_EXPORT TextLocator : public GenericLocator {
    VEXA_CONCRETE_SET(TextLocator);

    /// Such as the name of a tape.
    VEXA_REQUIRED(std::wstring, LocatorName, locatorName);
};

VEXA_SET_FACTORY(TextLocator, GenericLocator);

} // namespace vexa_toolkit
