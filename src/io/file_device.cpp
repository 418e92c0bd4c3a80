#include "io/platform/FilePlatform.h"
#include "util/utf.h"

#include <vexa/io/file_device.h>

#include <boost/smart_ptr/make_shared.hpp>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <system_error>
#include <utility>

inline namespace vexa_toolkit {

namespace vexa {
namespace {

constexpr long optimalBufferSize = 65536;
constexpr long maxSmallRead = 512;
constexpr long maxRead = 0x2000000;

// The hints that act at open, and so don't change afterwards.
constexpr std::uint32_t openHints = 0xFE;

[[noreturn]] void fail(const char* text) {
    throw std::ios_base::failure(text);
}

// The system has just said why.
[[noreturn]] void failBySystem(const char* text) {
    throw std::ios_base::failure(text, std::error_code(errno, std::generic_category()));
}

// A path that can't be encoded becomes an empty one, which no system opens.
std::string narrowPath(const std::wstring& path) {
    return util::utf8FromWide(path).value_or(std::string());
}

} // namespace

class file_device::impl {
public:
    /// A stretch of the file, in the file system's unit.
    struct Range {
        unsigned long offset;
        unsigned long duration;
    };

    explicit impl(int hintBits);
    ~impl();
    impl(const impl&) = delete;
    impl& operator=(const impl&) = delete;

    void open(const std::string& path, std::ios_base::openmode mode, const Range* range);
    void close();
    bool isOpen() const { return fd != -1; }
    long read(char* buffer, long count);
    long write(const char* buffer, long count);
    std::streampos seek(long offset, std::ios_base::seekdir way);
    void truncate();
    int changeHints(std::uint32_t value, std::uint32_t mask);

    std::uint32_t hints;

private:
    void select(const std::string& path, const Range* range);
    void applyHints() const;
    void moveSystemPosition();
    std::uint64_t fileLength() const;

    int fd = -1;
    bool writesOnly = false;
    bool seekable = true;
    std::uint64_t position = 0;
    std::uint64_t systemPosition = 0; // where the descriptor stands, as far as known
    std::uint64_t length = 0;         // as known from own writes
};

file_device::impl::impl(int hintBits)
    : hints(static_cast<std::uint32_t>(hintBits & ~PartialRange)) {}

// A range that is refused changes no file: where opening would, the range comes first.
void file_device::impl::open(const std::string& path, std::ios_base::openmode mode,
                             const Range* range) {
    const bool in = (mode & std::ios_base::in) != 0;
    const bool out = (mode & std::ios_base::out) != 0;
    if (!in && !out) {
        fail("bad openmode");
    }
    if (path.find('\0') != std::string::npos) {
        fail("bad open");
    }
    if (!in) {
        select(path, range);
    }
    const bool append = (mode & std::ios_base::app) != 0;
    fd = platform::openFile(path.c_str(), in, out, append);
    if (fd == -1) {
        failBySystem("bad open");
    }
    if (in) {
        select(path, range);
    }
    seekable = platform::canSeek(fd);
    if (!in && append && seekable) {
        position = length = fileLength();
    }
    writesOnly = !in;
    applyHints();
}

void file_device::impl::applyHints() const {
    if ((hints & NoCache) != 0) {
        platform::disableCache(fd);
    }
    if ((hints & NoReadAhead) != 0) {
        platform::setReadAhead(fd, false);
    }
    if ((hints & ReadAhead) != 0) {
        platform::setReadAhead(fd, true);
    }
}

file_device::impl::~impl() {
    if (isOpen()) {
        platform::closeFile(fd);
    }
}

void file_device::impl::select(const std::string& path, const Range* range) {
    if (range == nullptr) {
        return;
    }
    if (!platform::selectPartialRange(path.c_str(), range->offset, range->duration)) {
        failBySystem("bad partial offset/duration");
    }
    hints |= PartialRange;
}

// The system gives the descriptor's number away again even when it reports a failure.
void file_device::impl::close() {
    if (!platform::closeFile(std::exchange(fd, -1))) {
        failBySystem("bad close");
    }
}

long file_device::impl::read(char* buffer, long count) {
    if (count == 0) {
        return 0;
    }
    moveSystemPosition();
    const long limit = (hints & SmallReads) != 0 ? maxSmallRead : maxRead;
    const auto result =
        platform::readFile(fd, buffer, static_cast<std::size_t>(std::clamp(count, 0L, limit)));
    if (result == -1) {
        failBySystem("bad read");
    }
    if (result == 0) {
        return -1;
    }
    position += static_cast<std::uint64_t>(result);
    systemPosition = position;
    return static_cast<long>(result);
}

long file_device::impl::write(const char* buffer, long count) {
    moveSystemPosition();
    const auto result =
        platform::writeFile(fd, buffer, static_cast<std::size_t>(std::max(count, 0L)));
    if (result == -1) {
        failBySystem("bad write");
    }
    position += static_cast<std::uint64_t>(result);
    systemPosition = position;
    length = std::max(length, position);
    return static_cast<long>(result);
}

std::streampos file_device::impl::seek(long offset, std::ios_base::seekdir way) {
    if (!seekable) {
        fail("bad seek");
    }
    std::uint64_t base = 0;
    if (way == std::ios_base::cur) {
        base = position;
    }
    if (way == std::ios_base::end) {
        base = fileLength();
    }
    position = base + static_cast<std::uint64_t>(offset);
    if (position > INT64_MAX) {
        fail("bad seek");
    }
    return static_cast<std::streamoff>(position);
}

void file_device::impl::truncate() {
    if (!platform::truncateFile(fd, position)) {
        failBySystem("bad truncate");
    }
}

int file_device::impl::changeHints(std::uint32_t value, std::uint32_t mask) {
    mask &= ~openHints;
    return static_cast<int>(std::exchange(hints, (hints & ~mask) | (value & mask)));
}

void file_device::impl::moveSystemPosition() {
    if (systemPosition == position) {
        return;
    }
    if (!platform::seekFile(fd, position)) {
        failBySystem("bad seek");
    }
    systemPosition = position;
}

std::uint64_t file_device::impl::fileLength() const {
    if (writesOnly) {
        return length;
    }
    const auto size = platform::fileSize(fd);
    if (size == -1) {
        failBySystem("bad seek");
    }
    return static_cast<std::uint64_t>(size);
}

file_device::file_device() = default;

file_device::file_device(const std::string& path, std::ios_base::openmode mode, int hints) {
    open(path, mode, hints);
}

file_device::file_device(const std::wstring& path, std::ios_base::openmode mode, int hints) {
    open(path, mode, hints);
}

void file_device::open(const std::string& path, std::ios_base::openmode mode, int hints) {
    const auto opening = boost::make_shared<impl>(hints);
    opening->open(path, mode, nullptr);
    impl_ = opening;
}

void file_device::open(const std::wstring& path, std::ios_base::openmode mode, int hints) {
    open(narrowPath(path), mode, hints);
}

void file_device::open(unsigned long offset, unsigned long duration, const std::string& path,
                       std::ios_base::openmode mode, int hints) {
    const impl::Range range{offset, duration};
    const auto opening = boost::make_shared<impl>(hints);
    opening->open(path, mode, &range);
    impl_ = opening;
}

void file_device::open(unsigned long offset, unsigned long duration, const std::wstring& path,
                       std::ios_base::openmode mode, int hints) {
    open(offset, duration, narrowPath(path), mode, hints);
}

void file_device::close() {
    const auto closing = std::exchange(impl_, nullptr);
    if (closing && closing->isOpen()) {
        closing->close();
    }
}

bool file_device::is_open() const {
    return impl_ && impl_->isOpen();
}

long file_device::read(char* buffer, long count) {
    return opened().read(buffer, count);
}

long file_device::write(const char* buffer, long count) {
    return opened().write(buffer, count);
}

std::streampos file_device::seek(long offset, std::ios_base::seekdir way) {
    return opened().seek(offset, way);
}

void file_device::truncate() {
    opened().truncate();
}

long file_device::optimal_buffer_size() const {
    opened();
    return optimalBufferSize;
}

long file_device::alignment() const {
    opened();
    return 0;
}

int file_device::hints() const {
    return static_cast<int>(opened().hints);
}

int file_device::hints(int value) {
    return hints(value, -1);
}

int file_device::hints(int value, int mask) {
    return opened().changeHints(static_cast<std::uint32_t>(value),
                                static_cast<std::uint32_t>(mask));
}

file_device::impl& file_device::opened() const {
    if (!is_open()) {
        fail("not open");
    }
    return *impl_;
}

file_source::file_source() = default;

file_source::file_source(const std::string& path, std::ios_base::openmode mode, int hints)
    : file_device(path, mode, hints) {}

file_source::file_source(const std::wstring& path, std::ios_base::openmode mode, int hints)
    : file_device(path, mode, hints) {}

file_sink::file_sink() = default;

file_sink::file_sink(const std::string& path, std::ios_base::openmode mode, int hints)
    : file_device(path, mode, hints) {}

file_sink::file_sink(const std::wstring& path, std::ios_base::openmode mode, int hints)
    : file_device(path, mode, hints) {}

} // namespace vexa

} // namespace vexa_toolkit
