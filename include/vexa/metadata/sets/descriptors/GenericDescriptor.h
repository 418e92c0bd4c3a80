#pragma once

#include <vexa/metadata/MetadataObject.h>
#include <vexa/metadata/sets/descriptors/SubDescriptor.h>
#include <vexa/metadata/sets/structural/GenericLocator.h>

inline namespace vexa_toolkit {

/// What a piece of essence is like (SMPTE 377M, GenericDescriptor).
class VEXA_EXPORT GenericDescriptor : public MetadataObject {
    VEXA_ABSTRACT_SET(GenericDescriptor);

    /// Places to look for the essence if it isn't in the file, the first to be tried first.
    VEXA_STRONG_VECTOR(GenericLocator, Locator, Locators, locators);

    /// More about the same essence. In later editions of the standard (SubDescriptors).
    VEXA_STRONG_VECTOR(SubDescriptor, GenericSubDescriptor, GenericSubDescriptors,
                       genericSubDescriptors);
};

VEXA_SET_FACTORY(GenericDescriptor, MetadataObject);

} // namespace vexa_toolkit
