// Prints the structure, header metadata, index tables and essence tracks of an MXF file, and what
// is wrong with it; `usage` below tells how it is called.
//
// What stands behind "at" counts from the file's first byte, what stands behind "offset" from its
// first partition. What is wrong with a partition stands before it.

#include "../support/CommandLine.h"
#include "../support/ReportPrinter.h"
#include "../support/counted.h"
#include "EssencePrinter.h"
#include "ModelPrinter.h"
#include "ProgressLine.h"
#include "values.h"

#include <vexa/vexa.h>

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace {

class StructurePrinter : public DullMXFStructureHandler {
public:
    explicit StructurePrinter(boost::shared_ptr<EssencePrinter> essence)
        : essence_(std::move(essence)) {}

    void runIn(std::uint64_t length) override { std::cout << "run-in " << length << '\n'; }

    void startPartition(const KLVKey& key, const MXFPartitionPack& pack, std::uint64_t) override {
        std::cout << "partition " << count_++ << ' ' << kindOf(key) << ' '
                  << (MXFPartitionKey::isClosed(key) ? "closed-" : "open-")
                  << (MXFPartitionKey::isComplete(key) ? "complete" : "incomplete") << " offset "
                  << pack.thisPartition << " previous " << pack.previousPartition << " footer "
                  << pack.footerPartition << " kag " << pack.kagSize << " header "
                  << pack.headerByteCount << " index " << pack.indexByteCount << " indexSID "
                  << pack.indexSID << " bodySID " << pack.bodySID << " bodyOffset "
                  << pack.bodyOffset << " version " << pack.majorVersion << '.' << pack.minorVersion
                  << '\n';
        essence_->setBodySID(pack.bodySID);
        printLabel("pattern", pack.operationalPattern);
        for (const KLVKey& container : pack.essenceContainers) {
            printLabel("container", container);
        }
    }

    void randomIndex(const MXFRandomIndex& table) override {
        std::cout << "random-index";
        for (const MXFRandomIndexEntry& entry : table) {
            std::cout << ' ' << entry.bodySID << ':' << entry.byteOffset;
        }
        std::cout << '\n';
    }

private:
    static const char* kindOf(const KLVKey& key) {
        return MXFPartitionKey::isHeader(key) ? "header"
               : MXFPartitionKey::isBody(key) ? "body"
                                              : "footer";
    }

    static void printLabel(const char* name, const KLVKey& label) {
        const std::string meaning = metadata::labelName(label);
        std::cout << "  " << name << ' ' << label << (meaning.empty() ? "" : " ") << meaning
                  << '\n';
    }

    boost::shared_ptr<EssencePrinter> essence_;
    unsigned count_ = 0;
};

class IndexPrinter : public MXFIndexHandler {
public:
    void startIndexTable() override {}
    void endIndexTable() override {}

    void indexTableSegment(const MXFIndexTableSegment& segment) override {
        std::cout << "index-segment indexSID " << segment.indexSID << " bodySID " << segment.bodySID
                  << " start " << counted(segment.indexStartPosition, "edit unit") << ", duration ";
        if (segment.indexDuration == 0 && segment.editUnitByteCount != 0) {
            std::cout << "whole";
        } else {
            std::cout << counted(segment.indexDuration, "edit unit");
        }
        std::cout << ", rate " << values::text(segment.indexEditRate) << " Hz";
        if (segment.editUnitByteCount != 0) {
            std::cout << ", " << counted(segment.editUnitByteCount, "byte")
                      << " for each edit unit";
        }
        std::cout << ", " << counted(segment.deltaEntryArray.size(), "delta") << ", "
                  << counted(1 + segment.sliceCount, "slice") << ", "
                  << counted(segment.indexEntryArray.size(), "entry", "entries") << '\n';
    }
};

constexpr const char* usage =
    "usage: inspect [--edit-units] FILE\n"
    "Prints the structure, header metadata, index tables and essence tracks of the MXF file FILE,\n"
    "and what is wrong with it.\n"
    "  --edit-units  prints a line for each edit unit, too\n"
    "  -h, --help    prints this\n"
    "Exit status: 0 if the file was read without errors, 1 if errors were reported, 2 if it could\n"
    "not be read to its end.\n";

std::optional<std::uint64_t> sizeOf(const std::string& path) {
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    return failure ? std::nullopt : std::optional<std::uint64_t>(size);
}

/// Returns the exit status.
int inspect(const std::string& path, bool eachEditUnit) {
    const auto file =
        boost::make_shared<boost::iostreams::stream<vexa::file_source>>(vexa::file_source(path));
    const std::optional<std::uint64_t> size = sizeOf(path);
    const auto reports = boost::make_shared<ReportPrinter>(std::cout);
    const auto essence = boost::make_shared<EssencePrinter>(reports, size, eachEditUnit);
    ProgressLine progress(size);
    essence->onEditUnit([&] { progress.tell(reports->position()); });
    const auto reader = createVEXAReader(file);
    reader->setStructureHandler(boost::make_shared<StructurePrinter>(essence));
    reader->setMetadataHandler(boost::make_shared<ModelPrinter>());
    reader->setIndexHandler(boost::make_shared<IndexPrinter>());
    reader->setGCStructureHandler(essence);
    reader->setSDTICPSystemHandler(essence);
    reader->setEssenceHandler(essence);
    reader->setErrorHandler(reports);
    try {
        reader->read();
    } catch (const std::exception& failure) {
        essence->print();
        throw std::runtime_error(explain(failure, *file));
    }
    essence->print();
    return reports->hasErrors() ? 1 : 0;
}

} // namespace

int main(int argc, char* argv[]) {
    CommandLine arguments(argc, argv);
    const bool eachEditUnit = arguments.take("--edit-units");
    if (const std::optional<int> status = arguments.showUsage(usage, 1)) {
        return *status;
    }
    const std::string& path = arguments.operand(0);
    return run("inspect", path, [&] { return inspect(path, eachEditUnit); });
}
