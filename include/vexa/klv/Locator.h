#pragma once

#include <vexa/Export.h>

#include <ios>

inline namespace vexa_toolkit {

/// Tells where in the stream the present event lies.
///
/// At the start event of an element that is the first byte of its value, behind key and length; at
/// its end event the byte behind the value.
class VEXA_EXPORT Locator {
public:
    virtual ~Locator();

    /// Bytes from the beginning of the stream; -1 means that the stream couldn't tell. Meaningful
    /// during an event, until the next one.
    virtual const std::streampos& getPosition() const = 0;
};

} // namespace vexa_toolkit
