#include "io/platform/FilePlatform.h"
#include "util/attempt.h"

#include <vexa/io/file_device.h>
#include <vexa/io/file_stream_buffer.h>

#include <algorithm>
#include <cstring>
#include <limits>

inline namespace vexa_toolkit {

namespace vexa {
namespace {

constexpr std::streamsize minPutbackSize = 4;
constexpr std::streamsize firstFill = 4096;
constexpr std::streamsize fillGrowth = 2;
constexpr std::streamsize readAheadGrowth = 4;     // of the buffer, unless its size was asked for
constexpr std::streamsize maxBufferSize = 1 << 30; // positions in the put area are an int
constexpr std::streamoff nowhere = -1;

[[noreturn]] void fail(const char* text) {
    throw std::ios_base::failure(text);
}

} // namespace

// The device's position belongs to egptr() while there is a get area and to pbase() while there is
// a put area, and is noted in devicePosition_, as it is asked for often. There is never more than
// one of the two. The memory is the room for bytes put back, followed by the buffer: `readAhead_`
// bytes to read into, or `bufferSize_` to write from.
//
// A file of large elements is read as a few bytes of header and then either a large value or a
// seek, so a full buffer would mostly hold bytes that are copied once more, or dropped. Reading
// therefore starts with a piece as long as what small reads used the last time, and asks for more
// each time that they use one up.

file_streambuf::file_streambuf() = default;

file_streambuf::~file_streambuf() {
    const platform::CancellationPutOff whileClosing;
    util::quietly([&] {
        if (autoClose_) {
            close();
        } else {
            flushPutArea();
        }
    });
}

bool file_streambuf::is_open() const {
    return device_ != nullptr;
}

void file_streambuf::close() {
    if (!is_open()) {
        return;
    }
    util::attempt(
        [&] { linked_streambuf<char>::close(output_ ? std::ios_base::out : std::ios_base::in); },
        [&] { detach(); });
    detach();
}

void file_streambuf::detach() {
    dropAreas();
    device_.reset();
}

bool file_streambuf::auto_close() const {
    return autoClose_;
}

void file_streambuf::set_auto_close(bool close) {
    autoClose_ = close;
}

bool file_streambuf::strict_sync() {
    return sync() == 0;
}

void file_streambuf::attach(const std::shared_ptr<file_device>& device, bool output,
                            std::streamsize bufferSize, std::streamsize putbackSize) {
    if (is_open()) {
        fail("already open");
    }
    const std::streamsize optimal = device->optimal_buffer_size();
    bufferSize_ =
        std::clamp(bufferSize < 0 ? optimal : bufferSize, std::streamsize(1), maxBufferSize);
    putbackSize_ = std::clamp(putbackSize, minPutbackSize, maxBufferSize);
    readAhead_ = bufferSize < 0 ? readAheadGrowth * bufferSize_ : bufferSize_;
    memory_.reset(new char[static_cast<std::size_t>(putbackSize_ + readAhead_)]);
    output_ = output;
    planNextFill(0);
    device_ = device;
    devicePosition_ = seekDevice(0, std::ios_base::cur);
    set_true_eof(false);
    set_needs_close();
}

file_device* file_streambuf::device() const {
    return device_.get();
}

file_streambuf::int_type file_streambuf::underflow() {
    if (gptr() < egptr()) {
        return traits_type::to_int_type(*gptr());
    }
    beginReading();
    const auto kept = std::min<std::streamsize>(gptr() - eback(), putbackSize_);
    emptyGetArea(gptr() - kept, kept);
    const auto count = read(gptr(), nextFill_);
    if (count == 0) {
        return traits_type::eof();
    }
    nextFill_ = std::min(fillGrowth * nextFill_, readAhead_);
    filled_ += count;
    setg(eback(), gptr(), gptr() + count);
    return traits_type::to_int_type(*gptr());
}

file_streambuf::int_type file_streambuf::pbackfail(int_type c) {
    if (gptr() == eback()) {
        return traits_type::eof();
    }
    gbump(-1);
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        *gptr() = traits_type::to_char_type(c);
    }
    return traits_type::not_eof(c);
}

file_streambuf::int_type file_streambuf::overflow(int_type c) {
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        const char byte = traits_type::to_char_type(c);
        xsputn(&byte, 1);
    }
    return traits_type::not_eof(c);
}

std::streamsize file_streambuf::xsgetn(char* buffer, std::streamsize count) {
    if (0 < count && count <= egptr() - gptr()) { // mostly
        std::memcpy(buffer, gptr(), static_cast<std::size_t>(count));
        setg(eback(), gptr() + count, egptr());
        return count;
    }
    const bool large = count >= bufferSize_;
    if (large) {
        planNextFill(filled_ - (egptr() - gptr()));
    }
    std::streamsize done = 0;
    while (done < count) {
        const auto buffered = std::min<std::streamsize>(egptr() - gptr(), count - done);
        if (buffered > 0) {
            std::memcpy(buffer + done, gptr(), static_cast<std::size_t>(buffered));
            setg(eback(), gptr() + buffered, egptr());
            done += buffered;
        } else if (large || count - done > bufferSize_ / 2) {
            const auto received = readDirectly(buffer + done, count - done);
            if (received == 0) {
                break;
            }
            done += received;
        } else if (traits_type::eq_int_type(underflow(), traits_type::eof())) {
            break;
        }
    }
    return done;
}

// Whole buffers go out, directly or not, so that a file that is written in order is written at
// aligned offsets. Pieces that begin anywhere cost the system half as much again.
std::streamsize file_streambuf::xsputn(const char* buffer, std::streamsize count) {
    beginWriting();
    for (std::streamsize done = 0; done < count;) {
        const auto left = count - done;
        if (pptr() == pbase() && left >= bufferSize_) {
            done += write(buffer + done, left - left % bufferSize_);
        } else if (pptr() == epptr()) {
            flushPutArea();
        } else {
            const auto step = std::min<std::streamsize>(epptr() - pptr(), left);
            std::memcpy(pptr(), buffer + done, static_cast<std::size_t>(step));
            pbump(static_cast<int>(step));
            done += step;
        }
    }
    return count;
}

int file_streambuf::sync() {
    return util::succeeds([&] { flushPutArea(); }) ? 0 : -1;
}

file_streambuf::pos_type file_streambuf::seekoff(off_type offset, std::ios_base::seekdir way,
                                                 std::ios_base::openmode which) {
    const bool relative = way == std::ios_base::cur;
    if (relative && offset == 0) {
        return tell();
    }
    if (offset < std::numeric_limits<off_type>::min() + maxBufferSize) {
        return nowhere;
    }
    if (relative && which == std::ios_base::in && eback() - gptr() <= offset &&
        offset <= egptr() - gptr()) {
        const off_type before = tell();
        if (before == nowhere) {
            return nowhere;
        }
        gbump(static_cast<int>(offset));
        return before + offset;
    }
    if (sync() == -1) {
        return nowhere;
    }
    const off_type unread = relative ? egptr() - gptr() : 0;
    const off_type reached = seekDevice(offset - unread, way);
    if (reached != nowhere) {
        // Who skips a value goes on as before; behind other seeks anything may follow.
        planNextFill(relative ? filled_ - unread : 0);
        dropAreas();
    }
    return reached;
}

file_streambuf::pos_type file_streambuf::seekpos(pos_type position, std::ios_base::openmode which) {
    return seekoff(off_type(position), std::ios_base::beg, which);
}

void file_streambuf::close_impl(std::ios_base::openmode which) {
    if ((which == std::ios_base::out) != output_) {
        return;
    }
    util::attempt([&] { flushPutArea(); }, [&] { opened().close(); });
    opened().close();
}

file_device& file_streambuf::opened() const {
    if (!is_open()) {
        fail("not open");
    }
    return *device_;
}

// By what small reads used since the last large read or seek.
void file_streambuf::planNextFill(std::streamsize used) {
    nextFill_ = std::min(std::max(used + firstFill - used % firstFill, firstFill), readAhead_);
    filled_ = 0;
}

// Leaves nothing to read but what can be put back: the `kept` bytes at `last`.
void file_streambuf::emptyGetArea(const char* last, std::streamsize kept) {
    char* const start = memory_.get() + putbackSize_;
    if (kept > 0) {
        std::memmove(start - kept, last, static_cast<std::size_t>(kept));
    }
    setg(start - kept, start, start);
}

void file_streambuf::dropAreas() {
    setg(nullptr, nullptr, nullptr);
    setp(nullptr, nullptr);
}

void file_streambuf::beginReading() {
    opened();
    flushPutArea();
    setp(nullptr, nullptr);
    if (gptr() == nullptr) {
        emptyGetArea(nullptr, 0);
    }
}

void file_streambuf::beginWriting() {
    opened();
    if (pptr() != nullptr) {
        return;
    }
    giveBackUnread();
    setg(nullptr, nullptr, nullptr);
    char* const start = memory_.get() + putbackSize_;
    if (bufferSize_ > 1) {
        setp(start, start + bufferSize_);
    }
}

// A refused seek leaves the device where it was.
file_streambuf::off_type file_streambuf::seekDevice(off_type offset, std::ios_base::seekdir way) {
    file_device& device = opened();
    const auto distance = static_cast<long>(offset);
    if (distance != offset) {
        return nowhere;
    }
    try {
        const off_type before = device.seek(0, std::ios_base::cur);
        try {
            return devicePosition_ = device.seek(distance, way);
        } catch (const std::ios_base::failure&) {
            devicePosition_ = device.seek(before, std::ios_base::beg);
        }
    } catch (const std::ios_base::failure&) { // NOLINT(bugprone-empty-catch): it can't seek at all
    }
    return nowhere;
}

// Brings the device back to where the reader of the get area stands.
void file_streambuf::giveBackUnread() {
    if (gptr() != egptr()) {
        devicePosition_ = opened().seek(gptr() - egptr(), std::ios_base::cur);
    }
    setg(eback(), egptr(), egptr());
}

void file_streambuf::deviceMoved(std::streamsize count) {
    if (devicePosition_ != nowhere) {
        devicePosition_ += count;
    }
}

// Returns 0 at the end of the file.
std::streamsize file_streambuf::read(char* buffer, std::streamsize count) {
    const auto received = opened().read(buffer, count);
    if (received <= 0) {
        set_true_eof(true);
        return 0;
    }
    deviceMoved(received);
    return received;
}

// What was read before must be used up. Returns 0 at the end of the file.
std::streamsize file_streambuf::readDirectly(char* buffer, std::streamsize count) {
    beginReading();
    const auto received = read(buffer, count);
    if (received == 0) {
        return 0;
    }
    const auto kept = std::min<std::streamsize>(received, putbackSize_);
    emptyGetArea(buffer + received - kept, kept);
    return received;
}

std::streamsize file_streambuf::write(const char* buffer, std::streamsize count) {
    const auto written = opened().write(buffer, count);
    if (written <= 0) {
        fail("bad write");
    }
    deviceMoved(written);
    return written;
}

void file_streambuf::flushPutArea() {
    while (pptr() != pbase()) {
        const auto pending = pptr() - pbase();
        const auto written = write(pbase(), pending);
        setp(pbase() + written, epptr());
        pbump(static_cast<int>(pending - written));
    }
    if (pptr() != nullptr) {
        setp(epptr() - bufferSize_, epptr());
    }
}

// Pure: neither writes what is pending nor forgets what was read.
file_streambuf::pos_type file_streambuf::tell() {
    if (!opened().is_open()) {
        fail("not open");
    }
    return devicePosition_ == nowhere ? nowhere
                                      : devicePosition_ + (pptr() - pbase()) - (egptr() - gptr());
}

} // namespace vexa

} // namespace vexa_toolkit
