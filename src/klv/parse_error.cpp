#include <vexa/klv/parse_error.h>

inline namespace vexa_toolkit {

namespace klvutil {

parse_error::parse_error(const MXFUID& code, const std::string& text,
                         const ErrorHandler* reportedTo)
    : std::runtime_error(text), code_(code), reportedTo_(reportedTo) {}

parse_error::~parse_error() = default;

} // namespace klvutil

} // namespace vexa_toolkit
