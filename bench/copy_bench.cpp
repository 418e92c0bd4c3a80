// A copy by KLV reader and writer against a bare loop of reads and writes.

#include "BigFile.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "measure.h"

#include <vexa/io/file_device.h>

#include <boost/iostreams/stream.hpp>

#include <filesystem>

namespace {

void copyByKLV(const std::string& from, const std::string& to) {
    boost::iostreams::stream<vexa::file_source> in{vexa::file_source(from)};
    boost::iostreams::stream<vexa::file_sink> out{vexa::file_sink(to)};
    GenericKLVWriter writer(out);
    GenericKLVReader reader(writer);
    reader.parse(in);
    out.close();
    if (std::filesystem::file_size(from) != std::filesystem::file_size(to)) {
        throw std::logic_error("the copy isn't whole");
    }
}

/// Arguments: elements, bytes of a value, bytes of the bare loop's buffer.
void copy(benchmark::State& state) {
    const std::string& from = bigFile(
        {static_cast<std::uint64_t>(state.range(0)), static_cast<std::uint64_t>(state.range(1))});
    const std::string to = scratchFile("copy");
    std::vector<char> buffer(static_cast<std::size_t>(state.range(2)));
    compareCPU(
        state, [&] { copyByKLV(from, to); },
        [&] {
            BareFile in(from, O_RDONLY);
            BareFile out(to, O_WRONLY | O_CREAT | O_TRUNC);
            while (const std::size_t size = in.read(buffer)) {
                out.write(buffer.data(), size);
            }
        },
        [&] { std::filesystem::remove(to); });
    std::filesystem::remove(to);
}

BENCHMARK(copy)
    ->ArgNames({"elements", "value", "bare_buffer"})
    ->Args({10240, 26624, 1 << 20})
    ->Args({10240, 26624, 128 << 10})
    ->Args({1024, 1 << 18, 1 << 20})
    ->Args({1024, 1 << 18, 128 << 10})
    ->Args({256, 1 << 20, 1 << 20})
    ->Args({256, 1 << 20, 128 << 10})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(11)
    ->UseManualTime();

} // namespace
