#pragma once

#include <vexa/Export.h>
#include <vexa/klv/MXFUID.h>

inline namespace vexa_toolkit {

/// A source of new identifiers.
class VEXA_EXPORT MXFUIDGenerator {
public:
    virtual ~MXFUIDGenerator();

    /// A value that no earlier call returned.
    virtual MXFUID createUID() = 0;
};

} // namespace vexa_toolkit
