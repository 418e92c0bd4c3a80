#include "util/putback_streambuf.h"

#include "util/quietly.h"

#include <algorithm>
#include <cstring>

inline namespace vexa_toolkit {

namespace util {

// The get area lies in bytes_: history up to index `guaranteed`, then the lookahead byte. The
// history is what lies between eback() and that index.

putback_streambuf::putback_streambuf(std::streambuf& source) : source_(&source) {
    setg(present(), present(), present());
}

/// Takes the lookahead byte from the source and into the history, once it was read.
void putback_streambuf::settle() {
    if (gptr() > present()) {
        source_->sbumpc();
        remember(present(), 1);
    } else {
        setg(eback(), gptr(), present());
    }
    lookahead_ = false;
}

/// Moves bytes that were just read to the end of the history.
void putback_streambuf::remember(const char* data, std::size_t size) {
    const std::size_t taken = std::min(size, guaranteed);
    const auto history = static_cast<std::size_t>(present() - eback());
    const std::size_t kept = std::min(history, guaranteed - taken);
    std::memmove(present() - taken - kept, present() - kept, kept);
    std::memmove(present() - taken, data + (size - taken), taken);
    setg(present() - taken - kept, present(), present());
}

putback_streambuf::int_type putback_streambuf::underflow() {
    if (lookahead_) {
        settle();
    }
    const int_type next = source_->sgetc();
    if (!traits_type::eq_int_type(next, traits_type::eof())) {
        *present() = traits_type::to_char_type(next);
        setg(eback(), present(), present() + 1);
        lookahead_ = true;
    }
    return next;
}

std::streamsize putback_streambuf::xsgetn(char* data, std::streamsize size) {
    if (lookahead_) {
        settle();
    }
    const std::streamsize again = std::min<std::streamsize>(size, egptr() - gptr());
    std::copy_n(gptr(), again, data);
    gbump(static_cast<int>(again));
    if (again == size) {
        return size;
    }
    const std::streamsize fresh = source_->sgetn(data + again, size - again);
    if (fresh > 0) {
        remember(data + again, static_cast<std::size_t>(fresh));
    }
    return again + fresh;
}

void putback_streambuf::release() {
    if (lookahead_) {
        settle();
    }
    for (; gptr() != egptr(); gbump(1)) {
        source_->sungetc();
    }
}

putback_guard::putback_guard(std::istream& stream)
    : stream_(stream), source_(stream.rdbuf()), buffer_(*source_) {
    const std::ios_base::iostate state = stream_.rdstate();
    stream_.rdbuf(&buffer_);
    stream_.clear(state);
}

putback_guard::~putback_guard() {
    const std::ios_base::iostate state = stream_.rdstate();
    quietly([&] { buffer_.release(); }); // a source that fails here has failed its reader already
    stream_.rdbuf(source_);
    try {
        stream_.clear(state);
    } catch (const std::ios_base::failure&) {
        // The state is set all the same: a stream that throws on it did so when it arose.
    }
}

} // namespace util

} // namespace vexa_toolkit
