#pragma once

#include <vexa/metadata/MetadataObject.h>

inline namespace vexa_toolkit {

/// The base of the hints where to find essence (SMPTE 377M, Locator).
class VEXA_EXPORT GenericLocator : public MetadataObject {
    VEXA_ABSTRACT_SET(GenericLocator);
};

VEXA_SET_FACTORY(GenericLocator, MetadataObject);

} // namespace vexa_toolkit
