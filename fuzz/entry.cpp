// The entry point for fuzzing engines. While it runs, one large allocation is a finding.

#include "support.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t limit = SIZE_MAX;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size != 0) {
        limit = 1024 * 1024 + 64 * size; // some space per byte, whatever the bytes say
        fuzz::testInput(fuzz::Input(data, size));
        limit = SIZE_MAX;
    }
    return 0;
}

// The array forms call these.

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (size > limit) {
        limit = SIZE_MAX;
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
