#pragma once

#include <vexa/metadata/MXFTimestamp.h>
#include <vexa/metadata/MetadataObject.h>
#include <vexa/metadata/UMID.h>
#include <vexa/metadata/sets/structural/Track.h>

#include <string>

inline namespace vexa_toolkit {

/// The base of the packages: tracks that belong together (SMPTE 377M, GenericPackage).
class VEXA_EXPORT GenericPackage : public MetadataObject {
    VEXA_ABSTRACT_SET(GenericPackage);

    /// Its identity, by which source references find it.
    VEXA_REQUIRED(UMID, PackageUID, packageUID);

    /// For a human reader.
    VEXA_OPTIONAL(std::wstring, Name, name);

    /// When the package was made, not the material.
    VEXA_REQUIRED(MXFTimestamp, PackageCreationDate, packageCreationDate);

    /// Last change of the package.
    VEXA_REQUIRED(MXFTimestamp, PackageModifiedDate, packageModifiedDate);

    /// In the order in which they are coded; each with a `trackID` of its own.
    VEXA_STRONG_VECTOR(Track, Track, Tracks, tracks);
};

VEXA_SET_FACTORY(GenericPackage, MetadataObject);

} // namespace vexa_toolkit
