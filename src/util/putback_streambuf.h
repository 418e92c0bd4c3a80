#pragma once

#include <array>
#include <cstddef>
#include <istream>
#include <streambuf>

inline namespace vexa_toolkit {

namespace util {

/// Reads another buffer so that the last `guaranteed` bytes can always be put back, whatever the
/// other's own limits. It can't seek, and takes nothing from the other before it is asked for it.
class putback_streambuf : public std::streambuf {
public:
    static constexpr std::size_t guaranteed = 16;

    explicit putback_streambuf(std::streambuf& source);

    /// Leaves the source where this buffer's reader stands, as far as it takes bytes back.
    void release();

protected:
    int_type underflow() override;
    std::streamsize xsgetn(char* data, std::streamsize size) override;

private:
    char* present() { return bytes_.data() + guaranteed; }
    void settle();
    void remember(const char* data, std::size_t size);

    std::streambuf* source_;
    /// The last bytes read, up to `guaranteed`, at the end; behind them one byte of lookahead.
    std::array<char, guaranteed + 1> bytes_{};
    /// The lookahead byte is in the get area, and still in the source.
    bool lookahead_ = false;
};

/// Puts such a buffer in a stream's way for its own lifetime.
class putback_guard {
public:
    explicit putback_guard(std::istream& stream);
    ~putback_guard();
    putback_guard(const putback_guard&) = delete;
    putback_guard& operator=(const putback_guard&) = delete;

private:
    std::istream& stream_;
    std::streambuf* source_;
    putback_streambuf buffer_;
};

} // namespace util

} // namespace vexa_toolkit
