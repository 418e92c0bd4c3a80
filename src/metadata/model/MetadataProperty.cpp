#include "metadata/model/MetadataProperty.h"

inline namespace vexa_toolkit {

namespace metadata {

void requireTarget(const boost::shared_ptr<const MetadataRoot>& target, const std::string& name) {
    if (target == nullptr) {
        throw util::assertion_failure(name + " is present");
    }
}

} // namespace metadata

} // namespace vexa_toolkit
