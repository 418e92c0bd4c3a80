// Reading: what structure costs where nobody wants the essence, and what every byte costs against a
// bare loop.

#include "BigFile.h"
#include "measure.h"
#include "mxf/MXFReader.h"
#include "support/AllocationCount.h"

#include <vexa/front/VEXAReader.h>
#include <vexa/io/file_device.h>
#include <vexa/klv/DullKLVHandler.h>
#include <vexa/mxf/DullMXFStructureHandler.h>

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>

namespace {

using FileStream = boost::iostreams::stream<vexa::file_source>;

constexpr auto openForReading = std::ios_base::in | std::ios_base::binary;

class PartitionCounter : public DullMXFStructureHandler {
public:
    void startPartition(const KLVKey&, const MXFPartitionPack&, std::uint64_t) override { ++count; }
    void randomIndex(const MXFRandomIndex& table) override { listed += table.size(); }
    std::size_t count = 0;
    std::size_t listed = 0;
};

void readStructure(const std::string& path, int hints) {
    const auto stream =
        boost::make_shared<FileStream>(vexa::file_source(path, openForReading, hints));
    const auto reader = createVEXAReader(stream);
    const auto partitions = boost::make_shared<PartitionCounter>();
    reader->setStructureHandler(partitions);
    reader->read();
    if (partitions->count != 1 || partitions->listed != 1) {
        throw std::logic_error("the file wasn't read to its end");
    }
}

/// Arguments: elements, bytes of a value, whether the file is sparse, hints.
void structureOnly(benchmark::State& state) {
    const BigFileLayout layout{static_cast<std::uint64_t>(state.range(0)),
                               static_cast<std::uint64_t>(state.range(1)), state.range(2) != 0};
    const int hints = static_cast<int>(state.range(3));
    const std::string& path = bigFile(layout);
    readStructure(path, hints);

    const ReadCounts idle = readCounts();
    const ReadCounts before = readCounts();
    const std::uint64_t allocationsBefore = allocationCount();
    readStructure(path, hints);
    const std::uint64_t allocations = allocationCount() - allocationsBefore;
    const ReadCounts after = readCounts();
    // The counting reads, too.
    const std::uint64_t calls = after.calls - before.calls - (before.calls - idle.calls);
    const std::uint64_t bytes = after.bytes - before.bytes - (before.bytes - idle.bytes);

    std::vector<double> times;
    for (auto _ : state) {
        const double start = cpuSeconds();
        readStructure(path, hints);
        times.push_back(cpuSeconds() - start);
    }
    const auto perElement = [&](double total) {
        return total / static_cast<double>(layout.elements);
    };
    state.counters["cpu_ns/element"] = perElement(1e9 * median(times));
    state.counters["reads/element"] = perElement(static_cast<double>(calls));
    state.counters["bytes_read/element"] = perElement(static_cast<double>(bytes));
    state.counters["allocations"] = static_cast<double>(allocations);
}

BENCHMARK(structureOnly)
    ->ArgNames({"elements", "value", "sparse", "hints"})
    ->Args({40960, 26624, 0, 0})
    ->Args({10240, 26624, 0, 0})
    ->Args({40960, 4 * 26624, 1, 0})
    ->Args({40960, 16 * 26624, 1, 0})
    ->Args({40960, 26624, 0, vexa::file_device::SmallReads})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

/// Takes every value, into a buffer of its own if it has one.
class ValueTaker : public DullKLVHandler {
public:
    explicit ValueTaker(std::size_t bufferSize) : buffer_(bufferSize) {}

    bool startIndividualItem(const KLVKey&, std::uint64_t length, std::uint8_t** buffer) override {
        if (!buffer_.empty() && length <= buffer_.size()) {
            *buffer = buffer_.data();
        }
        return true;
    }
    void value(const std::uint8_t* data, std::uint64_t size) override {
        benchmark::DoNotOptimize(data);
        bytes += size;
    }

    std::uint64_t bytes = 0;

private:
    std::vector<std::uint8_t> buffer_;
};

/// Arguments: elements, bytes of a value, whether the handler gives a buffer.
void everyByte(benchmark::State& state) {
    const BigFileLayout layout{static_cast<std::uint64_t>(state.range(0)),
                               static_cast<std::uint64_t>(state.range(1))};
    const std::string& path = bigFile(layout);
    ValueTaker essence(state.range(2) != 0 ? layout.valueSize : 0);
    std::uint64_t allocations = 0;
    const auto ours = [&] {
        FileStream stream{vexa::file_source(path)};
        MXFReader reader;
        reader.setEssenceHandler(&essence);
        essence.bytes = 0;
        const std::uint64_t allocationsBefore = allocationCount();
        reader.parse(stream);
        allocations = allocationCount() - allocationsBefore;
        if (essence.bytes != layout.valueBytes()) {
            throw std::logic_error("values are missing");
        }
    };
    compareCPU(
        state, ours, [&] { readBare(path); }, [] {});
    state.counters["allocations"] = static_cast<double>(allocations);
}

BENCHMARK(everyByte)
    ->ArgNames({"elements", "value", "buffer"})
    ->Args({40960, 26624, 1})
    ->Args({40960, 26624, 0})
    ->Args({4096, 1 << 18, 1})
    ->Args({4096, 1 << 18, 0})
    ->Args({1024, 1 << 20, 1})
    ->Args({1024, 1 << 20, 0})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(11)
    ->UseManualTime();

} // namespace
