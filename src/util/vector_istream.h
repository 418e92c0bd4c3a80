#pragma once

#include <vexa/util/Bytes.h>

#include <cstdint>
#include <istream>
#include <streambuf>

inline namespace vexa_toolkit {

namespace util {

/// Reads a vector in place. The vector must outlive the buffer, unchanged.
///
/// A seek beyond either end fails with -1, and so does any seek in an empty vector.
class vector_streambuf : public std::streambuf {
public:
    explicit vector_streambuf(const Bytes& bytes);

protected:
    pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                     std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;
};

/// An input stream over a vector that the caller keeps alive.
class vector_istream : public std::istream {
public:
    explicit vector_istream(const Bytes& bytes);

private:
    vector_streambuf buffer_;
};

} // namespace util

} // namespace vexa_toolkit
