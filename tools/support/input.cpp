#include "support/input.h"

#include <vexa/vexa.h>

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>

#include <filesystem>
#include <stdexcept>
#include <system_error>

boost::shared_ptr<std::istream> openInput(const std::string& path) {
    if (std::error_code failure; std::filesystem::is_directory(path, failure)) {
        throw std::runtime_error("it is a directory");
    }
    return boost::make_shared<boost::iostreams::stream<vexa::file_source>>(vexa::file_source(path));
}

std::string explain(const std::exception& failure, const std::istream& stream) {
    const std::string text = failure.what();
    const auto* const parseError = dynamic_cast<const klvutil::parse_error*>(&failure);
    if (parseError == nullptr) {
        return text;
    }
    switch (klvutil::toErrorCode(parseError->code())) {
    case klvutil::ErrorCode::InvalidRunIn:
        return text + " (no MXF file)";
    case klvutil::ErrorCode::StreamFailure:
        return stream.bad() ? text : text + " (the file ends early)";
    default:
        return text;
    }
}
