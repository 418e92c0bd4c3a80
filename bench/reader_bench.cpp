// A whole file through the reader with all its handlers, against a bare loop.

#include "BigFile.h"
#include "measure.h"
#include "support/AllocationCount.h"

#include <vexa/front/DullVEXAMetadataHandler.h>
#include <vexa/front/VEXAReader.h>
#include <vexa/gc/DullMXFGCEssenceHandler.h>
#include <vexa/gc/DullMXFGCStructureHandler.h>
#include <vexa/gc/system/DullMXFSDTICPSystemHandler.h>
#include <vexa/index/DullMXFIndexHandler.h>
#include <vexa/mxf/DullMXFStructureHandler.h>

#include <boost/make_shared.hpp>

namespace {

/// Takes whatever the reader has to tell, essence into a buffer of its own if it has one.
class Taker : public DullMXFStructureHandler,
              public DullVEXAMetadataHandler,
              public DullMXFIndexHandler,
              public DullMXFGCStructureHandler,
              public DullMXFSDTICPSystemHandler,
              public DullMXFGCEssenceHandler {
public:
    explicit Taker(std::size_t bufferSize) : buffer_(bufferSize) {}

    std::uint64_t essenceBytes = 0;
    std::uint64_t editUnits = 0;
    std::uint64_t systemItems = 0;
    std::uint64_t models = 0;
    std::uint64_t segments = 0;
    /// From the second edit unit on.
    std::uint64_t firstAllocations = 0;
    std::uint64_t lastAllocations = 0;

    void model(const std::vector<boost::shared_ptr<MetadataRoot>>&) override { ++models; }
    void indexTableSegment(const MXFIndexTableSegment&) override { ++segments; }

    void startEditUnit() override {
        lastAllocations = allocationCount();
        if (editUnits++ == 1) { // all buffers have grown
            firstAllocations = lastAllocations;
        }
    }
    void systemMetadataPack(const MXFSDTICPSystemMetadata&) override { ++systemItems; }

    bool wantsEssence(const KLVKey&, std::uint64_t length, std::uint8_t** buffer) override {
        if (length <= buffer_.size()) {
            *buffer = buffer_.data();
        }
        return true;
    }
    void pictureElement(const KLVKey&, const std::uint8_t* data, std::uint64_t length) override {
        take(data, length);
    }
    void soundElement(const KLVKey&, const std::uint8_t* data, std::uint64_t length) override {
        take(data, length);
    }

private:
    void take(const std::uint8_t* data, std::uint64_t length) {
        benchmark::DoNotOptimize(data);
        essenceBytes += length;
    }

    std::vector<std::uint8_t> buffer_;
};

boost::shared_ptr<Taker> readWhole(const std::string& path, std::size_t bufferSize) {
    const auto taker = boost::make_shared<Taker>(bufferSize);
    const auto reader = createVEXAReader(path);
    reader->setStructureHandler(taker);
    reader->setMetadataHandler(taker);
    reader->setIndexHandler(taker);
    reader->setGCStructureHandler(taker);
    reader->setSDTICPSystemHandler(taker);
    reader->setEssenceHandler(taker);
    reader->read();
    return taker;
}

void checkWhole(const Taker& taker, std::uint64_t groups) {
    if (taker.essenceBytes != groups * camerafile::essenceBytesPerGroup ||
        taker.systemItems != groups * camerafile::editUnitsPerGroup || taker.models == 0 ||
        taker.segments == 0) {
        throw std::logic_error("the file wasn't read whole");
    }
}

/// Arguments: groups of pictures, whether the handler gives buffers.
void readWholeFile(benchmark::State& state) {
    const auto groups = static_cast<std::uint64_t>(state.range(0));
    const std::string& path = camerafile::path(groups);
    const std::size_t bufferSize = state.range(1) != 0 ? camerafile::largestPicture : 0;
    boost::shared_ptr<Taker> taker;
    compareCPU(
        state, [&] { taker = readWhole(path, bufferSize); }, [&] { readBare(path); }, [] {});
    checkWhole(*taker, groups);
    const double cost = 1e6 * (state.counters["cpu_ms"] - state.counters["bare_ms"]);
    const auto editUnits = static_cast<double>(taker->editUnits);
    state.counters["ns/edit_unit"] = cost / editUnits;
    state.counters["allocations/edit_unit"] =
        static_cast<double>(taker->lastAllocations - taker->firstAllocations) / editUnits;
}

BENCHMARK(readWholeFile)
    ->ArgNames({"groups", "buffers"})
    ->Args({300, 1})
    ->Args({300, 0})
    ->Args({30, 1})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(11)
    ->UseManualTime();

} // namespace
