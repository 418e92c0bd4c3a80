// Writes each essence track of an MXF file to a file of its own; `usage` below tells how it is
// called. Holds one element at a time in memory, and of very large ones a piece.

#include "support/CommandLine.h"
#include "support/OutputFile.h"
#include "support/ReportPrinter.h"
#include "support/counted.h"

#include <vexa/vexa.h>

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr const char* usage =
    "usage: extract FILE DIR\n"
    "Writes each essence track of the MXF file FILE to a file of its own in the directory DIR,\n"
    "made if need be: DIR/picture-15010500.bin and so on, the number being the last four bytes\n"
    "of the elements' key. Replaces files of that name.\n"
    "  -h, --help  prints this\n"
    "Exit status: 0 if all went well, 1 if errors were reported, 2 if FILE could not be read\n"
    "to its end, or something could not be written.\n";

class Extractor : public DullMXFStructureHandler,
                  public MXFGCEssenceHandler,
                  public MXFGCChunkedEssenceHandler {
public:
    Extractor(std::filesystem::path input, std::filesystem::path directory)
        : input_(std::move(input)), directory_(std::move(directory)) {}

    void startPartition(const KLVKey&, const MXFPartitionPack& pack, std::uint64_t) override {
        bodySID_ = pack.bodySID;
    }

    /// Whole elements come into a buffer of ours; larger ones than a reader holds, in pieces.
    bool wantsEssence(const KLVKey&, std::uint64_t length, std::uint8_t** buffer) override {
        constexpr std::uint64_t largestWhole = 0xFFFFFF;
        if (length <= largestWhole) {
            element_.resize(std::max<std::size_t>(element_.size(), length + 1));
            *buffer = element_.data();
        }
        return true;
    }
    bool wantsChunkedEssence(const KLVKey&, std::uint64_t) override { return true; }
    void endChunkedEssence(const KLVKey&) override {}

    void pictureElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        write("picture", key, data, size);
    }
    void soundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        write("sound", key, data, size);
    }
    void dataElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        write("data", key, data, size);
    }
    void compoundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        write("compound", key, data, size);
    }
    void essenceLengthForm(std::uint8_t) override {}

    /// Says what was written, and what couldn't be. False if there is something of that.
    bool finish() {
        bool complete = true;
        for (auto& [track, output] : outputs_) {
            output.close();
            if (output.problem().empty()) {
                std::cout << output.path().filename().string() << ' '
                          << counted(output.bytes(), "byte") << '\n';
            } else {
                std::cerr << "extract: can't write " << output.path().string() << ": "
                          << output.problem() << '\n';
                complete = false;
            }
        }
        return complete;
    }

private:
    /// Tracks are told apart by what metadata calls their number: the last four bytes of the key.
    /// Those of a second essence stream carry its number as well.
    void write(const char* kind, const KLVKey& key, const std::uint8_t* data, std::uint64_t size) {
        const std::uint32_t number = std::uint32_t{key[12]} << 24 | std::uint32_t{key[13]} << 16 |
                                     std::uint32_t{key[14]} << 8 | key[15];
        OutputFile& output = outputs_[{bodySID_, number}];
        if (!output.isOpen()) {
            firstBodySID_ = firstBodySID_.value_or(bodySID_);
            std::ostringstream name;
            name << kind << '-' << std::hex << std::setfill('0') << std::setw(8) << number;
            if (bodySID_ != *firstBodySID_) {
                name << '-' << std::dec << bodySID_;
            }
            output.open(directory_ / (name.str() + ".bin"), input_);
        }
        output.write(data, size);
    }

    std::filesystem::path input_;
    std::filesystem::path directory_;
    std::uint32_t bodySID_ = 0;
    std::optional<std::uint32_t> firstBodySID_;
    std::vector<std::uint8_t> element_;
    std::map<std::pair<std::uint32_t, std::uint32_t>, OutputFile> outputs_;
};

/// Returns the exit status.
int extract(const std::string& path, const std::string& directory) {
    using FileStream = boost::iostreams::stream<vexa::file_source>;
    const auto file = boost::make_shared<FileStream>(vexa::file_source(path));
    const auto reports = boost::make_shared<ReportPrinter>(std::cerr);
    const auto extractor = boost::make_shared<Extractor>(path, directory);
    const auto reader = createVEXAReader(file);
    reader->setStructureHandler(extractor);
    reader->setEssenceHandler(extractor);
    reader->setErrorHandler(reports);
    try {
        reader->read();
    } catch (const std::exception& failure) {
        if (extractor->finish()) {
            throw std::runtime_error(explain(failure, *file));
        }
        return 2;
    }
    return !extractor->finish() ? 2 : reports->hasErrors() ? 1 : 0;
}

} // namespace

int main(int argc, char* argv[]) {
    CommandLine arguments(argc, argv);
    if (const std::optional<int> status = arguments.showUsage(usage, 2)) {
        return *status;
    }
    const std::string& path = arguments.operand(0);
    return run("extract", path, [&] { return extract(path, arguments.operand(1)); });
}
