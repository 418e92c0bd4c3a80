#include "klv/fillItem.h"

inline namespace vexa_toolkit {

namespace klvutil {

namespace {

int attributeSlot() {
    static const int slot = std::ios_base::xalloc();
    return slot;
}

} // namespace

std::uint8_t fillKeyVersion(std::ios_base& stream) {
    return static_cast<std::uint8_t>(stream.iword(attributeSlot()));
}

void setFillKeyVersion(std::ios_base& stream, std::uint8_t version) {
    stream.iword(attributeSlot()) = version;
}

} // namespace klvutil

} // namespace vexa_toolkit
