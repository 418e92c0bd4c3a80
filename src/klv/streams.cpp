#include "klv/streams.h"

#include "klv/faults.h"
#include "klv/smpte.h"
#include "util/quietly.h"

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
    std::streamsize done = 0;
    if (!util::succeeds([&] { done = in.rdbuf()->sgetn(reinterpret_cast<char*>(bytes), count); })) {
        in.setstate(std::ios_base::badbit);
        return false;
    }
    if (done != count) {
        in.setstate(std::ios_base::eofbit | std::ios_base::failbit);
    }
    return done == count;
}

bool isEnd(std::istream::int_type read) {
    return std::istream::traits_type::eq_int_type(read, std::istream::traits_type::eof());
}

/// What `in.seekg` and `in.tellg` do, in less time. A buffer that throws sets the bad bit.
std::streamoff seekInBuffer(std::istream& in, std::streamoff offset) {
    std::streamoff reached = noPosition;
    if (!util::succeeds([&] {
            reached = in.rdbuf()->pubseekoff(offset, std::ios_base::cur, std::ios_base::in);
        })) {
        in.setstate(std::ios_base::badbit);
    }
    return reached;
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
    const auto readOctets = [&] {
        for (std::uint8_t i = 0; complete && i < octets; ++i) {
            const auto octet = in.rdbuf()->sbumpc();
            complete = !isEnd(octet);
            number = number << 8 | static_cast<std::uint8_t>(octet);
        }
    };
    if (!util::succeeds(readOctets)) {
        in.setstate(std::ios_base::badbit);
        complete = false;
    } else if (!complete) {
        in.setstate(std::ios_base::eofbit | std::ios_base::failbit);
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
    std::streamoff position = noPosition;
    util::quietly([&] { position = buffer->pubseekoff(0, std::ios_base::cur, std::ios_base::in); });
    return position != noPosition;
}

void seekForward(std::istream& in, std::streamoff offset) {
    in.clear(in.rdstate() & ~std::ios_base::eofbit);
    if (in.fail()) {
        return;
    }
    const std::streamoff reached = seekInBuffer(in, offset);
    if (reached == noPosition) {
        in.setstate(std::ios_base::failbit);
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
    bool atEnd = false; // what `in.peek` does, in less time
    if (!util::succeeds([&] { atEnd = isEnd(in.rdbuf()->sgetc()); })) {
        in.setstate(std::ios_base::badbit);
    } else if (atEnd) {
        in.setstate(std::ios_base::eofbit);
    }
}

std::streampos tellSafely(std::istream& in) {
    if (!in.good()) {
        in.setstate(std::ios_base::failbit);
        return std::streampos(noPosition);
    }
    return seekInBuffer(in, 0);
}

bool endsBehindAByte(std::istream& in) {
    in.clear();
    bool byteThere = true;
    if (seekInBuffer(in, -1) != noPosition &&
        !util::succeeds([&] { byteThere = !isEnd(in.rdbuf()->sbumpc()); })) {
        in.setstate(std::ios_base::badbit);
    }
    if (in.good()) {
        in.setstate(std::ios_base::eofbit);
    }
    return byteThere && !in.bad();
}

} // namespace klvutil

} // namespace vexa_toolkit
