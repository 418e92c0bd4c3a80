#include <vexa/metadata/properties.h>
#include <vexa/util/assertion_failure.h>

#include <string>

inline namespace vexa_toolkit {

namespace metadata {

void failAbsent(const char* className, const char* name) {
    throw util::assertion_failure(std::string(className) + "." + name + " is present");
}

} // namespace metadata

} // namespace vexa_toolkit
