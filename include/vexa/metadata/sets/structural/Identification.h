#pragma once

#include <vexa/klv/MXFUID.h>
#include <vexa/metadata/MXFProductVersion.h>
#include <vexa/metadata/MXFTimestamp.h>
#include <vexa/metadata/MetadataObject.h>

#include <string>

inline namespace vexa_toolkit {

/// Who wrote or changed the file (SMPTE 377M, Identification).
class VEXA_EXPORT Identification : public MetadataObject {
    VEXA_CONCRETE_SET(Identification);

    /// What the `generationUID` of a set refers to that was made or changed on this occasion.
    VEXA_REQUIRED(MXFUID, ThisGenerationUID, thisGenerationUID);

    /// Maker of the application.
    VEXA_REQUIRED(std::wstring, CompanyName, companyName);

    /// Name of the application.
    VEXA_REQUIRED(std::wstring, ProductName, productName);

    /// Of the application, in numbers.
    VEXA_OPTIONAL(MXFProductVersion, ProductVersion, productVersion);

    /// Of the application, for a human reader.
    VEXA_REQUIRED(std::wstring, VersionString, versionString);

    /// Identifies the application.
    VEXA_REQUIRED(MXFUID, ProductUID, productUID);

    /// When the file was written or changed.
    VEXA_REQUIRED(MXFTimestamp, ModificationDate, modificationDate);

    /// Of the library that the application used.
    VEXA_OPTIONAL(MXFProductVersion, ToolkitVersion, toolkitVersion);

    /// The library and the system that it ran on, for a human reader.
    VEXA_OPTIONAL(std::wstring, Platform, platform);
};

VEXA_SET_FACTORY(Identification, MetadataObject);

} // namespace vexa_toolkit
