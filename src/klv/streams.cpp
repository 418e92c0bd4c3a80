#include "klv/streams.h"

#include "klv/faults.h"
#include "klv/smpte.h"

#include <algorithm>
#include <array>
#include <limits>

namespace klvutil {

NoStreamExceptions::NoStreamExceptions(std::istream& in) : in_(in), exceptions_(in.exceptions()) {
    in.exceptions(std::ios_base::goodbit);
}

NoStreamExceptions::~NoStreamExceptions() {
    try {
        in_.exceptions(exceptions_);
    } catch (const std::ios_base::failure&) { // NOLINT(bugprone-empty-catch): the mask is set
    }
}

namespace {

/// What `in.read` does, without what a stream does around each read: headers are full of small
/// ones.
bool readFromBuffer(std::istream& in, std::uint8_t* bytes, std::streamsize count) {
    try {
        if (in.rdbuf()->sgetn(reinterpret_cast<char*>(bytes), count) == count) {
            return true;
        }
        in.setstate(std::ios_base::eofbit | std::ios_base::failbit);
    } catch (...) {
        in.setstate(std::ios_base::badbit);
    }
    return false;
}

} // namespace

void checkedRead(std::istream& in, std::uint8_t* buffer, std::uint64_t count,
                 ErrorHandler* errorHandler) {
    constexpr std::uint64_t most = std::numeric_limits<std::streamsize>::max();
    if (count > most || !in.good() ||
        !readFromBuffer(in, buffer, static_cast<std::streamsize>(count))) {
        fail(errorHandler, faults::unsuccessfulRead);
    }
}

KLVKey readKey(std::istream& in, ErrorHandler* errorHandler) {
    KLVKey key;
    checkedRead(in, key.bytes.data(), KLVKey::size, errorHandler);
    if (!isSMPTEKey(key)) {
        reportError(errorHandler, faults::invalidKey);
    }
    return key;
}

bool isSeekable(std::istream& in) {
    std::streambuf* const buffer = in.rdbuf();
    if (buffer == nullptr) {
        return false;
    }
    try {
        return buffer->pubseekoff(0, std::ios_base::cur, std::ios_base::in) !=
               std::streampos(noPosition);
    } catch (...) {
        return false;
    }
}

void seekForward(std::istream& in, std::streamoff offset) {
    if (in.eof()) {
        in.clear(in.rdstate() & ~std::ios_base::eofbit);
    }
    in.seekg(offset, std::ios_base::cur);
}

void ignoreExactly(std::istream& in, std::streamoff count) {
    std::array<char, 65536> ignored;
    constexpr auto most = static_cast<std::streamoff>(ignored.size());
    for (std::streamoff left = count; left > 0 && in.good();) {
        const std::streamoff step = std::min(left, most);
        in.read(ignored.data(), step);
        left -= step;
    }
}

std::istream::int_type peekEnd(std::istream& in) {
    const std::istream::int_type next = in.peek();
    if (next == std::istream::traits_type::eof() && !in.eof()) {
        in.setstate(std::ios_base::eofbit);
    }
    return next;
}

std::streampos tellSafely(std::istream& in) {
    if (!in.good()) {
        in.setstate(std::ios_base::failbit);
        return std::streampos(noPosition);
    }
    try { // what `in.tellg` does, in less time
        return in.rdbuf()->pubseekoff(0, std::ios_base::cur, std::ios_base::in);
    } catch (...) {
        in.setstate(std::ios_base::badbit);
        return std::streampos(noPosition);
    }
}

bool isBeyondEnd(std::istream& in) {
    const std::streamoff position = in.tellg();
    if (position == noPosition) {
        return false;
    }
    in.seekg(0, std::ios_base::end);
    const std::streamoff end = in.tellg();
    in.clear();
    in.seekg(position);
    return end != noPosition && end < position;
}

} // namespace klvutil
