#include "util/ToolkitVersion.h"

#include <vexa/front/VEXAToolkit.h>

MXFProductVersion getVEXAToolkitVersion() {
    return {util::toolkitMajorVersion, util::toolkitMinorVersion, util::toolkitPatchVersion,
            util::toolkitBuildVersion, util::toolkitReleaseVersion};
}

std::wstring getVEXAPlatform() {
    return L"Orvo MXF Toolset (MacOS X)";
}
