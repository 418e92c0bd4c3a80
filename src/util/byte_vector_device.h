#pragma once

#include <vexa/util/Bytes.h>

#include <boost/iostreams/categories.hpp>

#include <cstdint>
#include <ios>

inline namespace vexa_toolkit {

namespace util {

/// Appends what is written to a vector that the caller keeps alive: the end of a
/// boost::iostreams::stream, which must be flushed before the vector is looked at.
class byte_vector_device {
public:
    using char_type = char;
    using category = boost::iostreams::sink_tag;

    explicit byte_vector_device(Bytes& bytes) : bytes_(&bytes) {}

    std::streamsize write(const char* data, std::streamsize size) {
        bytes_->insert(bytes_->end(), data, data + size);
        return size;
    }

private:
    Bytes* bytes_;
};

} // namespace util

} // namespace vexa_toolkit
