#pragma once

#include <vexa/klv/KLVKey.h>

#include <cstdint>
#include <istream>

inline namespace vexa_toolkit {

class ErrorHandler;

/// What the readers ask of a stream.
namespace klvutil {

/// A position that isn't known, or no position.
constexpr std::streamoff noPosition = -1;

/// Keeps a stream from throwing on its state for as long as this object lives, so that the readers
/// can tell what became of it.
class NoStreamExceptions {
public:
    explicit NoStreamExceptions(std::istream& in);
    ~NoStreamExceptions();
    NoStreamExceptions(const NoStreamExceptions&) = delete;
    NoStreamExceptions& operator=(const NoStreamExceptions&) = delete;

private:
    std::istream& in_;
    std::ios_base::iostate exceptions_;
};

/// Reads exactly `count` bytes, else fails with "unsuccessful read()". With an error handler the
/// failure is reported before it is thrown.
void checkedRead(std::istream& in, std::uint8_t* buffer, std::uint64_t count,
                 ErrorHandler* errorHandler);

/// Reads a big-endian number of up to 8 octets as checkedRead does.
std::uint64_t readNumber(std::istream& in, std::uint8_t octets, ErrorHandler* errorHandler);

/// Reads a key as checkedRead does. With an error handler, a key that isn't a SMPTE key is reported
/// as an error and returned all the same.
KLVKey readKey(std::istream& in, ErrorHandler* errorHandler);

/// True if the stream's buffer can tell its position. Nothing of the stream changes.
bool isSeekable(std::istream& in);

/// Seeks onwards from the present position; the end-of-file bit is cleared before. Whether it
/// worked is the stream's state.
void seekForward(std::istream& in, std::streamoff offset);

/// Reads `count` bytes and drops them. Whether they were there is the stream's state: to reach the
/// end of the stream with the last of them isn't an end-of-file condition.
void ignoreExactly(std::istream& in, std::streamoff count);

/// Looks at what a good stream holds next, and sets the end-of-file bit if that is nothing.
void peekEnd(std::istream& in);

/// The position, or -1 and the fail bit if the stream isn't good.
std::streampos tellSafely(std::istream& in);

/// Whether the byte before the position is there, of a stream that has nothing behind it: a seek in
/// a file may lead beyond its end. It goes back by one byte, and reads it; a stream that refuses to
/// go back is believed, one that fails isn't. The stream then is at its end as before.
bool endsBehindAByte(std::istream& in);

} // namespace klvutil

} // namespace vexa_toolkit
