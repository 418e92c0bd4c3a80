// vexa inspect: the structure, header metadata, index tables and essence tracks of MXF files, and
// what is wrong with them.
//
// What stands behind "at" counts from the file's first byte, what stands behind "offset" from its
// first partition.

#include "Subcommand.h"
#include "inspect/EssenceCounter.h"
#include "inspect/HeaderMetadata.h"
#include "inspect/JSONPrinter.h"
#include "inspect/TextPrinter.h"
#include "support/ProgressLine.h"
#include "support/Reports.h"
#include "support/input.h"

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace {

struct Options {
    std::vector<std::string> files;
    bool json = false;
    bool all = false;
    bool editUnits = false;
};

/// Passes partitions on, and lets the others know in which one they are.
class StructureInspector : public DullMXFStructureHandler {
public:
    StructureInspector(InspectionPrinter& printer, boost::shared_ptr<MetadataCollector> metadata,
                       boost::shared_ptr<EssenceCounter> essence)
        : printer_(printer), metadata_(std::move(metadata)), essence_(std::move(essence)) {}

    void runIn(std::uint64_t length) override { printer_.runIn(length); }
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack, std::uint64_t) override {
        printer_.partition(key, pack);
        metadata_->setPartition(count_++);
        essence_->setBodySID(pack.bodySID);
    }
    void randomIndex(const MXFRandomIndex& table) override { printer_.randomIndex(table); }

private:
    InspectionPrinter& printer_;
    boost::shared_ptr<MetadataCollector> metadata_;
    boost::shared_ptr<EssenceCounter> essence_;
    unsigned count_ = 0;
};

class IndexInspector : public DullMXFIndexHandler {
public:
    explicit IndexInspector(InspectionPrinter& printer) : printer_(printer) {}

    void indexTableSegment(const MXFIndexTableSegment& segment) override {
        printer_.indexSegment(segment);
    }

private:
    InspectionPrinter& printer_;
};

std::optional<std::uint64_t> sizeOf(const std::string& path) {
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    return failure ? std::nullopt : std::optional<std::uint64_t>(size);
}

Status inspect(const std::string& path, const Options& options, InspectionPrinter& printer) {
    const auto file = openInput(path);
    const auto reports = boost::make_shared<Reports>(
        options.all, [&](const Report& report) { printer.report(report); });
    ProgressLine progress(path);
    const auto essence =
        boost::make_shared<EssenceCounter>(reports, sizeOf(path), [&](const EditUnit& unit) {
            progress.tell(*reports);
            if (options.editUnits) {
                printer.editUnit(unit);
            }
        });
    const auto metadata = boost::make_shared<MetadataCollector>(
        options.all, [&](const HeaderMetadata& found) { printer.metadata(found); });
    const auto reader = createVEXAReader(file);
    reader->setStructureHandler(boost::make_shared<StructureInspector>(printer, metadata, essence));
    reader->setMetadataHandler(metadata);
    reader->setIndexHandler(boost::make_shared<IndexInspector>(printer));
    reader->setGCStructureHandler(essence);
    reader->setSDTICPSystemHandler(essence);
    reader->setEssenceHandler(essence);
    reader->setErrorHandler(reports);
    const auto printSums = [&] {
        printer.essence(essence->streams());
        reports->tellKeptBack(
            [&](const Report& report, std::uint64_t count) { printer.keptBack(report, count); });
    };
    try {
        reader->read();
    } catch (const std::exception& failure) {
        printSums();
        throw std::runtime_error(explain(failure, *file));
    }
    printSums();
    return reports->hasErrors() ? ErrorsReported : Sound;
}

Status inspect(const std::string& path, const Options& options) {
    const auto printer = options.json ? std::unique_ptr<InspectionPrinter>(new JSONPrinter(path))
                                      : std::make_unique<TextPrinter>(path);
    std::string error;
    Status status = NotDone;
    try {
        status = inspect(path, options, *printer);
    } catch (const std::exception& failure) {
        error = failure.what();
    }
    printer->end(status, error);
    return status;
}

Status inspect(const Options& options) {
    Status status = Sound;
    for (const std::string& path : options.files) {
        if (options.files.size() > 1 && !options.json) {
            std::cout << (path == options.files.front() ? "" : "\n") << "file " << path << '\n';
        }
        status = std::max(status, inspect(path, options));
    }
    return status;
}

} // namespace

Work configureInspect(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    app.add_option("FILE", options->files, "MXF files")->required();
    app.add_flag("--json", options->json, "Print a JSON document in one line for each file");
    app.add_flag("--all", options->all,
                 "Print header metadata and reports also where they repeat themselves");
    app.add_flag("--edit-units", options->editUnits, "Print each edit unit, too");
    return [options] { return inspect(*options); };
}
