#include "util/hex.h"

#include <vexa/klv/KLVKey.h>

#include <ostream>
#include <string>

inline namespace vexa_toolkit {

std::ostream& operator<<(std::ostream& out, const KLVKey& key) {
    std::string text;
    for (std::size_t i = 0; i < KLVKey::size; ++i) {
        text += (i == 0 ? "" : ".") + util::hexByte(key[i]);
    }
    return out << text;
}

} // namespace vexa_toolkit
