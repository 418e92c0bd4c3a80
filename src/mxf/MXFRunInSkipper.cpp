#include "mxf/MXFRunInSkipper.h"

#include "klv/faults.h"
#include "klv/streams.h"
#include "mxf/faults.h"
#include "mxf/keys.h"

inline namespace vexa_toolkit {

namespace {

/// What all partition pack keys begin with. Its first byte doesn't come again in it, so a byte that
/// breaks a match can at most be the first of the next.
constexpr KLVKey pattern = mxf::keys::structurePack(0, 0);

} // namespace

void MXFRunInSkipper::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

std::uint32_t MXFRunInSkipper::skip(std::istream& in, std::uint32_t maxLength) {
    if (!in.good()) {
        klvutil::fail(errorHandler_, klvutil::faults::streamNotGood);
    }
    std::uint32_t count = 0;
    std::uint32_t matched = 0;
    while (matched < patternSize && count - matched <= maxLength) {
        const std::istream::int_type next = in.get();
        if (next == std::istream::traits_type::eof()) {
            break;
        }
        ++count;
        if (next == pattern[matched]) {
            ++matched;
        } else {
            matched = next == pattern[0] ? 1 : 0;
        }
    }
    if (matched == patternSize) {
        goBack(in);
        return count - patternSize;
    }
    if (in.bad() || (in.fail() && !in.eof())) {
        klvutil::fail(errorHandler_, klvutil::faults::unsuccessfulGet);
    }
    klvutil::fail(errorHandler_, mxf::faults::invalidRunIn);
}

void MXFRunInSkipper::goBack(std::istream& in) const {
    if (klvutil::isSeekable(in)) {
        in.seekg(-static_cast<std::streamoff>(patternSize), std::ios_base::cur);
        if (!in.good()) {
            klvutil::fail(errorHandler_, klvutil::faults::unsuccessfulSeek);
        }
        return;
    }
    for (std::uint32_t i = patternSize; i-- > 0;) {
        in.putback(static_cast<char>(pattern[i]));
    }
    if (!in.good()) {
        klvutil::fail(errorHandler_, klvutil::faults::unsuccessfulPutback);
    }
}

} // namespace vexa_toolkit
