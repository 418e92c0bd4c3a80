#include <vexa/metadata/MetadataRoot.h>
#include <vexa/metadata/references.h>
#include <vexa/util/assertion_failure.h>

#include <new>

inline namespace vexa_toolkit {

namespace metadata {

namespace {

/// What the innermost drop() on this thread has still to do.
thread_local std::vector<boost::shared_ptr<const void>>* waiting = nullptr;

} // namespace

void failInvalidIndex() {
    throw util::assertion_failure("valid index");
}

void swapOwnership(MetadataRoot& owner, const boost::shared_ptr<MetadataRoot>& oldObject,
                   const boost::shared_ptr<MetadataRoot>& newObject) {
    owner.swapOwnership(oldObject, newObject);
}

void drop(boost::shared_ptr<const void> object) noexcept {
    if (object.use_count() != 1) {
        return;
    }
    if (waiting != nullptr) {
        try {
            waiting->push_back(std::move(object));
        } catch (const std::bad_alloc&) {
            object.reset();
        }
        return;
    }
    std::vector<boost::shared_ptr<const void>> objects;
    waiting = &objects;
    object.reset();
    while (!objects.empty()) {
        const boost::shared_ptr<const void> next = std::move(objects.back());
        objects.pop_back();
    }
    waiting = nullptr;
}

} // namespace metadata

} // namespace vexa_toolkit
