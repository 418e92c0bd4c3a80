// A whole file through the writer, against a bare loop.

#include "BigFile.h"
#include "measure.h"
#include "support/AllocationCount.h"

#include <vexa/front/VEXAWriter.h>
#include <vexa/io/file_device.h>
#include <vexa/klv/Locator.h>
#include <vexa/mxf/MXFPartitionKey.h>

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>

#include <cstdio>

namespace {

constexpr KLVKey elementKey(std::uint8_t itemType, std::uint8_t count, std::uint8_t number) {
    return {{0x06, 0x0E, 0x2B, 0x34, 0x01, 0x02, 0x01, 0x01, 0x0D, 0x01, 0x03, 0x01, itemType,
             count, itemType == 0x15 ? std::uint8_t{5} : std::uint8_t{3}, number}};
}

struct Written {
    std::uint64_t bytes = 0;
    std::uint64_t allocationsPerEditUnit = 0;
};

/// A file of one partition, its edit units as in camerafile.
Written writeFile(const std::string& path, std::uint64_t editUnits,
                  const std::vector<std::uint8_t>& essence) {
    using FileStream = boost::iostreams::stream<vexa::file_sink>;
    const auto stream = boost::make_shared<FileStream>(vexa::file_sink(path));
    const auto writer = createVEXAWriter(stream);
    MXFStructureHandler& structure = *writer->getStructureHandler();
    MXFGCStructureHandler& shape = *writer->getGCStructureHandler();
    MXFGCEssenceHandler& elements = *writer->getEssenceHandler();
    MXFSDTICPSystemMetadata system;
    MXFPartitionPack pack;
    pack.minorVersion = 3;
    pack.kagSize = 512;
    pack.bodySID = 1;

    structure.startStructure();
    structure.startPartition(MXFPartitionKey::openIncompleteHeader, pack, 0);
    shape.startStream(pack.kagSize);
    std::uint64_t allocations = 0;
    for (std::uint64_t editUnit = 0; editUnit < editUnits; ++editUnit) {
        if (editUnit == 1) {
            allocations = allocationCount();
        }
        shape.startEditUnit();
        shape.startSlice();
        shape.startAlignedElement(0);
        writer->getSDTICPSystemHandler()->systemMetadataPack(system);
        shape.endAlignedElement();
        shape.startAlignedElement(0);
        elements.pictureElement(elementKey(0x15, 1, 0), essence.data(),
                                camerafile::pictureSize(editUnit));
        shape.endAlignedElement();
        for (std::uint8_t sound = 0; sound < camerafile::soundsPerEditUnit; ++sound) {
            shape.startAlignedElement(0);
            elements.soundElement(elementKey(0x16, camerafile::soundsPerEditUnit, sound),
                                  essence.data(), camerafile::soundSize);
            shape.endAlignedElement();
        }
        shape.endSlice();
        shape.endEditUnit();
    }
    allocations = allocationCount() - allocations;
    shape.endStream();
    structure.endPartition(MXFPartitionKey::openIncompleteHeader);
    structure.randomIndex({});
    structure.endStructure(false);
    stream->flush();
    return {static_cast<std::uint64_t>(std::streamoff(stream->tellp())), allocations / editUnits};
}

void writeBare(const std::string& path, std::uint64_t size, const std::vector<char>& buffer) {
    BareFile file(path, O_WRONLY | O_CREAT | O_TRUNC);
    for (std::uint64_t rest = size; rest > 0;) {
        const auto piece = static_cast<std::size_t>(std::min<std::uint64_t>(rest, buffer.size()));
        file.write(buffer.data(), piece);
        rest -= piece;
    }
}

/// Argument: groups of pictures.
void writeWholeFile(benchmark::State& state) {
    const std::uint64_t editUnits =
        static_cast<std::uint64_t>(state.range(0)) * camerafile::editUnitsPerGroup;
    const std::string path = scratchFile("written.mxf");
    const std::vector<std::uint8_t> essence(camerafile::largestPicture, 0x55);
    const std::vector<char> buffer(std::size_t{1} << 20, 0x55);
    Written written = writeFile(path, editUnits, essence);
    compareCPU(
        state, [&] { written = writeFile(path, editUnits, essence); },
        [&] { writeBare(path, written.bytes, buffer); }, [&] { std::remove(path.c_str()); });
    std::remove(path.c_str());
    const double cost = 1e6 * (state.counters["cpu_ms"] - state.counters["bare_ms"]);
    state.counters["ns/edit_unit"] = cost / static_cast<double>(editUnits);
    state.counters["allocations/edit_unit"] = static_cast<double>(written.allocationsPerEditUnit);
}
BENCHMARK(writeWholeFile)
    ->ArgName("groups")
    ->Arg(295) // 1.05 GB
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
