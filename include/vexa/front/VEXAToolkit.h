#pragma once

#include <vexa/Export.h>
#include <vexa/metadata/MXFProductVersion.h>

#include <string>

inline namespace vexa_toolkit {

/// The version of this library, as it stands in the Identification sets of the files it writes.
VEXA_EXPORT MXFProductVersion getVEXAToolkitVersion();

/// The platform name, as it stands in the Identification sets of the files it writes.
VEXA_EXPORT std::wstring getVEXAPlatform();

} // namespace vexa_toolkit
