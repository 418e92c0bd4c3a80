// Index table segments: what it costs to parse and to code them, against a bare copy of their
// bytes.

#include "index/MXFIndexCoder.h"
#include "index/MXFIndexParser.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "measure.h"
#include "support/AllocationCount.h"
#include "util/byte_vector_device.h"
#include "util/vector_istream.h"

#include <boost/iostreams/stream.hpp>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t entriesPerSegment = 250;
constexpr std::size_t segmentsPerTable = 400;

MXFIndexTableSegment someSegment(std::uint8_t sliceCount) {
    MXFIndexTableSegment segment;
    segment.instanceUID[0] = 1;
    segment.indexEditRate = {25, 1};
    segment.indexDuration = entriesPerSegment;
    segment.bodySID = 1;
    segment.sliceCount = sliceCount;
    segment.deltaEntryArray.resize(sliceCount + 1U);
    segment.indexEntryArray.resize(entriesPerSegment);
    for (MXFIndexEntry& entry : segment.indexEntryArray) {
        entry.sliceOffsets.resize(sliceCount);
    }
    return segment;
}

void codeTable(const MXFIndexTableSegment& segment, Bytes& bytes) {
    bytes.clear();
    boost::iostreams::stream<util::byte_vector_device> stream{util::byte_vector_device(bytes)};
    GenericKLVWriter writer(stream);
    MXFIndexCoder coder(writer);
    coder.startIndexTable();
    for (std::size_t i = 0; i < segmentsPerTable; ++i) {
        coder.indexTableSegment(segment);
    }
    coder.endIndexTable();
}

class EntryCounter : public MXFIndexHandler {
public:
    void startIndexTable() override {}
    void endIndexTable() override {}
    void indexTableSegment(const MXFIndexTableSegment& segment) override {
        count += segment.indexEntryArray.size();
    }
    std::size_t count = 0;
};

void parseTable(const Bytes& bytes) {
    util::vector_istream stream(bytes);
    EntryCounter entries;
    MXFIndexParser parser(entries);
    GenericKLVReader(parser).parse(stream);
    if (entries.count != entriesPerSegment * segmentsPerTable) {
        throw std::logic_error("entries are missing");
    }
}

/// Argument: slices, the first one not counted.
template <class Work> void runTable(benchmark::State& state, Work work) {
    const MXFIndexTableSegment segment = someSegment(static_cast<std::uint8_t>(state.range(0)));
    Bytes bytes;
    codeTable(segment, bytes);
    Bytes copy(bytes.size());
    const auto bare = [&] {
        std::copy(bytes.begin(), bytes.end(), copy.begin());
        benchmark::DoNotOptimize(copy.data());
    };
    const auto ours = [&] { work(segment, bytes); };
    const std::uint64_t before = allocationCount();
    ours();
    const std::uint64_t allocations = allocationCount() - before;
    compareCPU(state, ours, bare, [] {});
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) *
                            static_cast<std::int64_t>(state.iterations()));
    state.counters["allocations/segment"] =
        static_cast<double>(allocations) / static_cast<double>(segmentsPerTable);
}

void parseIndex(benchmark::State& state) {
    runTable(state, [](const MXFIndexTableSegment&, Bytes& bytes) { parseTable(bytes); });
}

void codeIndex(benchmark::State& state) {
    runTable(state,
             [](const MXFIndexTableSegment& segment, Bytes& bytes) { codeTable(segment, bytes); });
}

void setUp(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("slices")->Arg(0)->Arg(2)->Unit(benchmark::kMillisecond)->UseManualTime();
}

BENCHMARK(parseIndex)->Apply(setUp);
BENCHMARK(codeIndex)->Apply(setUp);

} // namespace
