#include "measure.h"

#include <cstdlib>
#include <fstream>
#include <new>
#include <sys/resource.h>

namespace {

std::uint64_t allocations = 0;

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

} // namespace

// The array forms call this one. The benchmarks run on one thread.

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size != 0 ? size : 1)) {
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

double cpuSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

std::uint64_t allocationCount() {
    return allocations;
}

ReadCounts readCounts() {
    ReadCounts counts;
    std::ifstream file("/proc/self/io");
    std::string name;
    for (std::uint64_t number = 0; file >> name >> number;) {
        if (name == "rchar:") {
            counts.bytes = number;
        } else if (name == "syscr:") {
            counts.calls = number;
        }
    }
    return counts;
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
