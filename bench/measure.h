#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

/// User and system time of this process, in seconds.
double cpuSeconds();

/// What the system has counted for this process: read calls, and the bytes that they brought. Both
/// stay 0 where it doesn't count.
struct ReadCounts {
    std::uint64_t calls = 0;
    std::uint64_t bytes = 0;
};
ReadCounts readCounts();

double median(std::vector<double> values);

/// Times `ours` and `bare` in turn, each once in each iteration after a first round that doesn't
/// count, and reports the medians of their CPU time, in milliseconds, and the ratio between these.
/// `prepare` comes before each of them, and isn't timed.
template <class Ours, class Bare, class Prepare>
void compareCPU(benchmark::State& state, Ours ours, Bare bare, Prepare prepare) {
    const auto timed = [&](auto& work) {
        prepare();
        const double start = cpuSeconds();
        work();
        return cpuSeconds() - start;
    };
    std::vector<double> oursSeconds;
    std::vector<double> bareSeconds;
    timed(ours);
    timed(bare);
    for (auto _ : state) {
        oursSeconds.push_back(timed(ours));
        bareSeconds.push_back(timed(bare));
        state.SetIterationTime(oursSeconds.back());
    }
    const double oursMedian = median(oursSeconds);
    const double bareMedian = median(bareSeconds);
    state.counters["cpu_ms"] = 1e3 * oursMedian;
    state.counters["bare_ms"] = 1e3 * bareMedian;
    state.counters["ratio"] = oursMedian / bareMedian;
}

/// A file as the system gives it.
class BareFile {
public:
    BareFile(const std::string& path, int flags) : file_(::open(path.c_str(), flags, 0666)) {
        if (file_ == -1) {
            throw std::runtime_error("can't open " + path);
        }
    }
    ~BareFile() { ::close(file_); }
    BareFile(const BareFile&) = delete;
    BareFile& operator=(const BareFile&) = delete;

    /// Returns the bytes that came, 0 at the end.
    std::size_t read(std::vector<char>& buffer) {
        const ssize_t count = ::read(file_, buffer.data(), buffer.size());
        if (count < 0) {
            throw std::runtime_error("can't read");
        }
        return static_cast<std::size_t>(count);
    }

    void write(const char* data, std::size_t size) {
        if (::write(file_, data, size) != static_cast<ssize_t>(size)) {
            throw std::runtime_error("can't write");
        }
    }

    void skip(std::uint64_t size) {
        if (::lseek(file_, static_cast<off_t>(size), SEEK_CUR) == -1) {
            throw std::runtime_error("can't seek");
        }
    }

private:
    int file_;
};

/// The loop that reading is compared with: 1 MiB at a time, and nothing is done with it.
void readBare(const std::string& path);
