#include "support/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

// The forms that all others come down to; the nothrow one, too, as its memory is freed by the same
// operator delete, and a tool that replaces these as well must not see the two mixed.

namespace {

std::atomic<std::uint64_t> allocations{0};

void* allocate(std::size_t size) noexcept {
    allocations.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size == 0 ? 1 : size);
}

} // namespace

std::uint64_t allocationCount() {
    return allocations.load(std::memory_order_relaxed);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void* operator new(std::size_t size) {
    void* const memory = allocate(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
