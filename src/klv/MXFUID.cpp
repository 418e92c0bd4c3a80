#include "util/hex.h"

#include <vexa/klv/MXFUID.h>

#include <ostream>
#include <string>

inline namespace vexa_toolkit {

std::ostream& operator<<(std::ostream& out, const MXFUID& uid) {
    std::string text;
    for (std::size_t i = 0; i < MXFUID::size; ++i) {
        const bool startsGroup = i == 4 || i == 6 || i == 8 || i == 10;
        text += (startsGroup ? "-" : "") + util::hexByte(uid[i]);
    }
    return out << text;
}

} // namespace vexa_toolkit
