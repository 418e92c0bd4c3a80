#include "klv/InputLocator.h"

inline namespace vexa_toolkit {

InputLocator::~InputLocator() = default;

void InputLocator::update(std::istream& stream) {
    const bool atEnd = stream.eof();
    if (atEnd) {
        stream.clear(stream.rdstate() & ~std::ios_base::eofbit);
    }
    position_ = klvutil::tellSafely(stream);
    if (atEnd) {
        stream.setstate(std::ios_base::eofbit);
    }
}

} // namespace vexa_toolkit
