// A file position has 64 bits on 32-bit systems too.
#define _FILE_OFFSET_BITS 64

#include "io/platform/FilePlatform.h"

#include <cerrno>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>
#ifdef __APPLE__
#include <sys/fsctl.h>
#endif

inline namespace vexa_toolkit {

namespace vexa {
namespace platform {

static_assert(sizeof(off_t) == 8, "file positions have 64 bits");

namespace {

/// Sets errno, as a system call does, where it is none.
bool isPosition(std::uint64_t position) {
    const bool fits = position <= INT64_MAX;
    if (!fits) {
        errno = EOVERFLOW;
    }
    return fits;
}

/// Makes a system call again while a signal interrupts it.
template <class Call> auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace

int openFile(const char* path, bool in, bool out, bool keep) {
    const int create = O_WRONLY | O_CREAT | (keep ? 0 : O_TRUNC);
    const int flags = in && out ? O_RDWR : out ? create : O_RDONLY;
    return uninterrupted([&] { return ::open(path, flags, 0666); });
}

// The system gives the descriptor's number away again even when it is interrupted.
bool closeFile(int file) {
    const CancellationPutOff whileClosing;
    return ::close(file) == 0 || errno == EINTR;
}

std::int64_t readFile(int file, char* buffer, std::size_t count) {
    return uninterrupted([&] { return ::read(file, buffer, count); });
}

std::int64_t writeFile(int file, const char* buffer, std::size_t count) {
    return uninterrupted([&] { return ::write(file, buffer, count); });
}

bool seekFile(int file, std::uint64_t position) {
    return isPosition(position) &&
           ::lseek(file, static_cast<off_t>(position), SEEK_SET) == static_cast<off_t>(position);
}

bool canSeek(int file) {
    return ::lseek(file, 0, SEEK_CUR) != -1;
}

bool truncateFile(int file, std::uint64_t length) {
    return isPosition(length) &&
           uninterrupted([&] { return ::ftruncate(file, static_cast<off_t>(length)); }) == 0;
}

std::int64_t fileSize(int file) {
    struct stat status;
    return ::fstat(file, &status) == 0 ? status.st_size : -1;
}

void disableCache([[maybe_unused]] int file) {
#if defined(F_NOCACHE)
    ::fcntl(file, F_NOCACHE, 1);
#elif defined(POSIX_FADV_NOREUSE)
    ::posix_fadvise(file, 0, 0, POSIX_FADV_NOREUSE);
#endif
}

void setReadAhead([[maybe_unused]] int file, [[maybe_unused]] bool on) {
#if defined(F_RDAHEAD)
    ::fcntl(file, F_RDAHEAD, on ? 1 : 0);
#elif defined(POSIX_FADV_SEQUENTIAL)
    ::posix_fadvise(file, 0, 0, on ? POSIX_FADV_SEQUENTIAL : POSIX_FADV_RANDOM);
#endif
}

#ifdef __APPLE__
bool selectPartialRange(const char* path, std::uint64_t offset, std::uint64_t duration) {
    constexpr unsigned long selectRange = 0x80107707;
    std::uint64_t range[2] = {offset, duration};
    return ::fsctl(path, selectRange, range, 0) != -1;
}
#else
bool selectPartialRange(const char*, std::uint64_t, std::uint64_t) {
    errno = ENOTSUP;
    return false;
}
#endif

CancellationPutOff::CancellationPutOff() {
    ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &state_);
}

CancellationPutOff::~CancellationPutOff() {
    ::pthread_setcancelstate(state_, nullptr);
}

} // namespace platform
} // namespace vexa

} // namespace vexa_toolkit
