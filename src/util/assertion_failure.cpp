#include <vexa/util/assertion_failure.h>

inline namespace vexa_toolkit {

namespace util {

assertion_failure::assertion_failure(const std::string& condition)
    : text_("assertion failure: " + condition) {}

assertion_failure::~assertion_failure() = default;

const char* assertion_failure::what() const noexcept {
    return text_.c_str();
}

} // namespace util

} // namespace vexa_toolkit
