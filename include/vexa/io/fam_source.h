#pragma once

#include <vexa/Export.h>
#include <vexa/io/file_device.h>

#include <ios>
#include <string>

inline namespace vexa_toolkit {

namespace tessel {

/// An input device of a class of its own, so that whoever is handed a stream can find it there and
/// set its hints, vexa::file_device::SmallReads while it looks for a file's partitions.
class VEXA_EXPORT fam_source : public vexa::file_source {
public:
    /// A closed device.
    fam_source();

    /// A device on the file at `path`, opened as by open().
    explicit fam_source(const std::string& path,
                        std::ios_base::openmode mode = std::ios_base::in | std::ios_base::binary,
                        int hints = 0);

    /// The same with a wide path.
    explicit fam_source(const std::wstring& path,
                        std::ios_base::openmode mode = std::ios_base::in | std::ios_base::binary,
                        int hints = 0);
};

} // namespace tessel

} // namespace vexa_toolkit

VEXA_FILE_STREAM_BUFFER(tessel::fam_source)
