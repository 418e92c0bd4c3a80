#pragma once

#include <vexa/metadata/sets/structural/GenericPackage.h>

inline namespace vexa_toolkit {

/// What a player shows: the output timeline of the file (SMPTE 377M, MaterialPackage).
class VEXA_EXPORT MaterialPackage : public GenericPackage {
    VEXA_CONCRETE_SET(MaterialPackage);
};

VEXA_SET_FACTORY(MaterialPackage, GenericPackage);

} // namespace vexa_toolkit
