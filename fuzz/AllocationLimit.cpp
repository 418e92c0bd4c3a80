#include "support.h"

#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
std::size_t limit = unlimited;

} // namespace

namespace fuzz {

AllocationLimit::AllocationLimit(std::size_t most) {
    limit = most;
}

AllocationLimit::~AllocationLimit() {
    limit = unlimited;
}

} // namespace fuzz

// The array forms call these.

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (size > limit) {
        limit = unlimited;
        fuzz::finding("allocation of " + std::to_string(size) + " bytes");
    }
    return std::malloc(size != 0 ? size : 1);
}

void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
