#include "measure.h"

#include <fstream>
#include <sys/resource.h>

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

} // namespace

double cpuSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
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

void readBare(const std::string& path) {
    BareFile file(path, O_RDONLY);
    std::vector<char> buffer(1 << 20);
    while (file.read(buffer) != 0) {
        benchmark::DoNotOptimize(buffer.data());
    }
}
