#pragma once

#include <vexa/io/file_device.h>

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>

#include <string>

inline namespace vexa_toolkit {

namespace front {

/// A stream over the file at that path, for the fronts that open theirs: over a vexa::file_source
/// to read, a file_sink to write. Throws what the device throws.
template <class Device>
boost::shared_ptr<boost::iostreams::stream<Device>> openFile(const std::string& path) {
    return boost::make_shared<boost::iostreams::stream<Device>>(Device(path));
}

} // namespace front

} // namespace vexa_toolkit
