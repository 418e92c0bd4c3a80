#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/metadata/MXFTimestamp.h>
#include <vexa/metadata/MetadataObject.h>
#include <vexa/metadata/sets/structural/ContentStorage.h>
#include <vexa/metadata/sets/structural/GenericPackage.h>
#include <vexa/metadata/sets/structural/Identification.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// The root of a file's header metadata (SMPTE 377M, Preface).
class VEXA_EXPORT Preface : public MetadataObject {
    VEXA_CONCRETE_SET(Preface);

    /// Last change of the file.
    VEXA_REQUIRED(MXFTimestamp, LastModifiedDate, lastModifiedDate);

    /// Of the standard that the file follows, major in the high byte: 258 for 1.2, 259 for 1.3. A
    /// new Preface has 258.
    VEXA_REQUIRED(std::uint16_t, Version, version);

    /// Of the object model, which the standard counts on its own.
    VEXA_OPTIONAL(std::uint32_t, ObjectModelVersion, objectModelVersion);

    /// The package to be played first of all; if absent, the material package.
    VEXA_OPTIONAL_WEAK(GenericPackage, PrimaryPackage, primaryPackage);

    /// One for each time that the file was written or changed, the latest last.
    VEXA_STRONG_VECTOR(Identification, Identification, Identifications, identifications);

    /// What the file holds.
    VEXA_REQUIRED_STRONG(ContentStorage, ContentStorage, contentStorage);

    /// Label of the operational pattern, the same as in the partition packs.
    VEXA_REQUIRED(KLVKey, OperationalPattern, operationalPattern);

    /// Labels of the essence containers that the file holds or refers to.
    VEXA_REQUIRED(std::vector<KLVKey>, EssenceContainers, essenceContainers);

    /// Labels of the descriptive metadata schemes in use.
    VEXA_REQUIRED(std::vector<KLVKey>, DMSchemes, dmSchemes);

    /// Whether the file ends with a random index pack; absent is unknown. IsRIPPresent in later
    /// editions of the standard.
    VEXA_OPTIONAL(bool, RIPPresent, ripPresent);
};

VEXA_SET_FACTORY(Preface, MetadataObject);

} // namespace vexa_toolkit
