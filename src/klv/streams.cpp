#include "klv/streams.h"

#include "klv/faults.h"
#include "klv/smpte.h"

#include <algorithm>
#include <array>
#include <limits>

inline namespace vexa_toolkit {

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

std::uint64_t readNumber(std::istream& in, std::uint8_t octets, ErrorHandler* errorHandler) {
    std::uint64_t number = 0;
    bool complete = in.good();
    try {
        for (std::uint8_t i = 0; complete && i < octets; ++i) {
            const auto octet = in.rdbuf()->sbumpc();
            if (std::istream::traits_type::eq_int_type(octet, std::istream::traits_type::eof())) {
                in.setstate(std::ios_base::eofbit | std::ios_base::failbit);
                complete = false;
            }
            number = number << 8 | static_cast<std::uint8_t>(octet);
        }
    } catch (...) {
        in.setstate(std::ios_base::badbit);
        complete = false;
    }
    if (!complete) {
        fail(errorHandler, faults::unsuccessfulRead);
    }
    return number;
}

KLVKey readKey(std::istream& in, ErrorHandler* errorHandler) {
    KLVKey key;
    checkedRead(in, key.bytes.data(), KLVKey::size, errorHandler);
    if (!isSMPTEKey(key)) {
        report(errorHandler, faults::invalidKey);
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
    in.clear(in.rdstate() & ~std::ios_base::eofbit);
    if (in.fail()) {
        return;
    }
    try { // what `in.seekg` does, in less time
        if (in.rdbuf()->pubseekoff(offset, std::ios_base::cur, std::ios_base::in) ==
            std::streampos(noPosition)) {
            in.setstate(std::ios_base::failbit);
        }
    } catch (...) {
        in.setstate(std::ios_base::badbit);
    }
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

void peekEnd(std::istream& in) {
    try { // what `in.peek` does, in less time
        const auto next = in.rdbuf()->sgetc();
        if (std::istream::traits_type::eq_int_type(next, std::istream::traits_type::eof())) {
            in.setstate(std::ios_base::eofbit);
        }
    } catch (...) {
        in.setstate(std::ios_base::badbit);
    }
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

} // namespace vexa_toolkit
