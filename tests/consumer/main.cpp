#include <vexa/vexa.h>

#include <iostream>

int main() {
    const MXFProductVersion version = getVEXAToolkitVersion();
    std::cout << version.majorVersion << '.' << version.minorVersion << '.' << version.patchVersion
              << '\n';
    return 0;
}
