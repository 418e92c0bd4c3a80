#include <vexa/io/fam_source.h>

inline namespace vexa_toolkit {

namespace tessel {

fam_source::fam_source() = default;

fam_source::fam_source(const std::string& path, std::ios_base::openmode mode, int hints)
    : vexa::file_source(path, mode, hints) {}

fam_source::fam_source(const std::wstring& path, std::ios_base::openmode mode, int hints)
    : vexa::file_source(path, mode, hints) {}

} // namespace tessel

} // namespace vexa_toolkit
