// The body of a partition in memory: what it costs to cut it into edit units and to tell their
// system elements, against a reader whose handler wants nothing.

#include "gc/MXFGCMuxer.h"
#include "gc/MXFGCSplitter.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "klv/keyLiteral.h"
#include "measure.h"
#include "support/AllocationCount.h"
#include "util/byte_vector_device.h"
#include "util/vector_istream.h"

#include <vexa/gc/DullMXFGCEssenceHandler.h>
#include <vexa/klv/DullKLVHandler.h>

#include <boost/iostreams/stream.hpp>

namespace {

using Bytes = std::vector<std::uint8_t>;
using klvutil::operator""_key;

constexpr int editUnits = 10000;
constexpr int elementsPerEditUnit = 5;

/// In each edit unit three system elements and two of essence, as SMPTE 326M has them.
Bytes body() {
    const Bytes essence(512);
    Bytes bytes;
    boost::iostreams::stream<util::byte_vector_device> stream{util::byte_vector_device(bytes)};
    GenericKLVWriter writer(stream);
    MXFGCMuxer to(writer);
    to.getStructureHandler().startStream(1);
    for (int i = 0; i < editUnits; ++i) {
        MXFGCSystemHandler& system = to.getSystemHandler();
        system.systemFixedLengthPack("060E2B34.02050101.0D010301.04010100"_key, Bytes(57));
        system.systemLocalSet("060E2B34.02630101.0D010301.04010200"_key, {{0x88, Bytes(32)}});
        system.systemLocalSet("060E2B34.02630101.0D010301.04010300"_key,
                              {{0x88, Bytes(32)}, {0x89, Bytes(32)}});
        MXFGCEssenceHandler& out = to.getEssenceHandler();
        out.pictureElement("060E2B34.01020101.0D010301.15010501"_key, essence.data(), 512);
        out.soundElement("060E2B34.01020101.0D010301.16010301"_key, essence.data(), 512);
    }
    to.getStructureHandler().endStream();
    stream.flush();
    return bytes;
}

/// Wants essence elements, in a buffer of its own if it has one.
struct Taker : DullMXFGCEssenceHandler {
    explicit Taker(std::uint8_t* own) : buffer(own) {}
    bool wantsEssence(const KLVKey&, std::uint64_t, std::uint8_t** to) override {
        *to = buffer;
        return true;
    }
    std::uint8_t* buffer;
};

std::uint8_t* buffer() {
    static Bytes bytes(mxfgc::longestWholeElement);
    return bytes.data();
}

void splitBody(benchmark::State& state) {
    const Bytes bytes = body();
    DullKLVHandler nobody;
    MXFGCMuxer to(nobody);
    MXFGCSplitter splitter(&to.getStructureHandler(), &to.getSystemHandler(), nullptr);
    const auto read = [&](KLVHandler& handler) {
        util::vector_istream stream(bytes);
        GenericKLVReader(handler).parse(stream);
    };
    const auto ours = [&] { read(splitter); };
    ours();
    const std::uint64_t before = allocationCount();
    ours();
    const std::uint64_t allocations = allocationCount() - before;
    compareCPU(
        state, ours, [&] { read(nobody); }, [] {});
    const double cost = 1e6 * (state.counters["cpu_ms"] - state.counters["bare_ms"]);
    state.counters["ns/edit_unit"] = cost / editUnits;
    state.counters["allocations/element"] =
        static_cast<double>(allocations) / (editUnits * elementsPerEditUnit);
}

BENCHMARK(splitBody)->Unit(benchmark::kMillisecond)->Iterations(21)->UseManualTime();

/// Arguments: KiB of the element, whether the buffer of one run serves the next.
void readFirstElement(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0)) * 1024;
    Bytes bytes;
    boost::iostreams::stream<util::byte_vector_device> stream{util::byte_vector_device(bytes)};
    GenericKLVWriter writer(stream);
    MXFGCMuxer to(writer);
    to.getStructureHandler().startStream(1);
    to.getEssenceHandler().pictureElement("060E2B34.01020101.0D010301.15010501"_key,
                                          Bytes(size).data(), size);
    to.getStructureHandler().endStream();
    stream.flush();
    EssenceBuffer lent;
    const std::size_t runs = 64 * 1024 * 1024 / size;
    const auto read = [&](bool lends, bool gives) {
        for (std::size_t i = 0; i < runs; ++i) {
            Taker taker(gives ? buffer() : nullptr);
            MXFGCSplitter splitter(nullptr, nullptr, &taker);
            if (lends) {
                splitter.setEssenceBuffer(lent);
            }
            util::vector_istream in(bytes);
            GenericKLVReader(splitter).parse(in);
        }
    };
    compareCPU(
        state, [&] { read(state.range(1) != 0, false); }, [&] { read(false, true); }, [] {});
}

BENCHMARK(readFirstElement)
    ->ArgNames({"KiB", "lent"})
    ->ArgsProduct({{60, 500, 2000, 16000}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5)
    ->UseManualTime();

} // namespace
