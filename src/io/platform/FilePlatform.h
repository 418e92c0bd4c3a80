#pragma once

#include <cstddef>
#include <cstdint>

inline namespace vexa_toolkit {

namespace vexa {
namespace platform {

/// The system calls of the file devices. Each goes on when a signal interrupts it, repeats nothing
/// else, and answers -1 or false when the system refuses, with the reason in errno. A thread may be
/// cancelled in any but closeFile.

/// `in` or `out` is set. `out` alone creates the file, and empties it unless `keep` is set.
int openFile(const char* path, bool in, bool out, bool keep);
bool closeFile(int file);
std::int64_t readFile(int file, char* buffer, std::size_t count);
std::int64_t writeFile(int file, const char* buffer, std::size_t count);

/// From the start of the file. A position above 2^63 - 1 is refused.
bool seekFile(int file, std::uint64_t position);

/// False for a pipe, a socket or a terminal.
bool canSeek(int file);
bool truncateFile(int file, std::uint64_t length);
std::int64_t fileSize(int file);

/// Advice that changes no result of any other call; where a platform knows no such thing, nothing
/// happens. Linux takes the first as "data is used once" and the others as a pattern of access,
/// sequential or random.
void disableCache(int file);
void setReadAhead(int file, bool on);

/// Selects a stretch of a file on media that can be read in part. Refused where the platform has
/// no such call.
bool selectPartialRange(const char* path, std::uint64_t offset, std::uint64_t duration);

/// Puts the thread's cancellation off for as long as this object lives: a destructor can't be left
/// by it.
class CancellationPutOff {
public:
    CancellationPutOff();
    ~CancellationPutOff();
    CancellationPutOff(const CancellationPutOff&) = delete;
    CancellationPutOff& operator=(const CancellationPutOff&) = delete;

private:
    int state_ = 0;
};

} // namespace platform
} // namespace vexa

} // namespace vexa_toolkit
