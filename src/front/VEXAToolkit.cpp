#include "util/ToolkitVersion.h"

#include <vexa/front/VEXAToolkit.h>

inline namespace vexa_toolkit {

MXFProductVersion getVEXAToolkitVersion() {
    return {util::toolkitMajorVersion, util::toolkitMinorVersion, util::toolkitPatchVersion,
            util::toolkitBuildVersion, util::toolkitReleaseVersion};
}

std::wstring getVEXAPlatform() {
    return L"Orvo MXF Toolset (MacOS X)";
}

} // namespace vexa_toolkit
