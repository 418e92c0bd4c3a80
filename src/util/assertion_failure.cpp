#include <vexa/util/assertion_failure.h>

inline namespace vexa_toolkit {

namespace util {

assertion_failure::assertion_failure(const std::string& condition, const char* file, int line)
    : text_("assertion failure: " + condition), file_(file), line_(line) {}

assertion_failure::~assertion_failure() = default;

const char* assertion_failure::what() const noexcept {
    return text_.c_str();
}

const char* assertion_failure::file() const noexcept {
    return file_;
}

int assertion_failure::line() const noexcept {
    return line_;
}

} // namespace util

} // namespace vexa_toolkit
