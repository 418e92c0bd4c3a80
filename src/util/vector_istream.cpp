#include "util/vector_istream.h"

inline namespace vexa_toolkit {

namespace util {

vector_streambuf::vector_streambuf(const Bytes& bytes) {
    if (!bytes.empty()) {
        // The get area is only read: nothing is put back that isn't there already.
        char* begin = const_cast<char*>(reinterpret_cast<const char*>(bytes.data()));
        setg(begin, begin, begin + bytes.size());
    }
}

vector_streambuf::pos_type vector_streambuf::seekoff(off_type offset, std::ios_base::seekdir way,
                                                     std::ios_base::openmode which) {
    const pos_type failure(off_type(-1));
    if (eback() == nullptr || (which & std::ios_base::in) == 0) {
        return failure;
    }
    const off_type size = egptr() - eback();
    const off_type base = way == std::ios_base::beg   ? 0
                          : way == std::ios_base::cur ? gptr() - eback()
                                                      : size;
    if (offset < -base || offset > size - base) {
        return failure;
    }
    setg(eback(), eback() + (base + offset), egptr());
    return pos_type(base + offset);
}

vector_streambuf::pos_type vector_streambuf::seekpos(pos_type position,
                                                     std::ios_base::openmode which) {
    return seekoff(off_type(position), std::ios_base::beg, which);
}

vector_istream::vector_istream(const Bytes& bytes) : std::istream(nullptr), buffer_(bytes) {
    rdbuf(&buffer_);
}

} // namespace util

} // namespace vexa_toolkit
