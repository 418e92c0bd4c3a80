// Prints the structure, header metadata, index tables and essence tracks of an MXF file, and what
// is wrong with it. With --edit-units, a line for each edit unit, too.
//
// Exit status: 0 if the file was read without errors, 1 if errors were reported, 2 if it could not
// be read to its end.
//
// What stands behind "at" counts from the file's first byte, what stands behind "offset" from its
// first partition. What is wrong with a partition stands before it.

#include "EssencePrinter.h"
#include "ModelPrinter.h"
#include "ProgressLine.h"
#include "values.h"

#include <vexa/vexa.h>

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>

#include <cstdint>
#include <exception>
#include <iomanip>
#include <iostream>
#include <stdexcept>

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
                  << " start " << segment.indexStartPosition << " edit units, duration ";
        if (segment.indexDuration == 0 && segment.editUnitByteCount != 0) {
            std::cout << "whole";
        } else {
            std::cout << segment.indexDuration << " edit units";
        }
        std::cout << ", rate " << values::text(segment.indexEditRate) << " Hz";
        if (segment.editUnitByteCount != 0) {
            std::cout << ", " << segment.editUnitByteCount << " bytes for each edit unit";
        }
        std::cout << ", " << segment.deltaEntryArray.size() << " deltas, " << 1 + segment.sliceCount
                  << " slices, " << segment.indexEntryArray.size() << " entries" << '\n';
    }
};

class ReportPrinter : public ErrorHandler {
public:
    bool hasErrors() const { return hasErrors_; }
    /// Of the read, in bytes; -1 where it isn't known.
    std::streamoff position() const {
        return locator_ == nullptr ? -1 : std::streamoff(locator_->getPosition());
    }

    void setLocator(const Locator* locator) override { locator_ = locator; }
    void startParse() override {}
    void endParse() override { locator_ = nullptr; }

    void warning(const MXFUID& code, const std::string& text) override {
        print("warning", code, text);
    }

    void error(const MXFUID& code, const std::string& text) override {
        hasErrors_ = true;
        print("error", code, text);
    }

    void fatalError(const MXFUID& code, const std::string& text) override {
        hasErrors_ = true;
        print("fatal", code, text);
    }

private:
    void print(const char* severity, const MXFUID& code, const std::string& text) const {
        std::cout << severity << ' ' << std::hex << std::uppercase << std::setfill('0')
                  << std::setw(8) << static_cast<std::uint32_t>(klvutil::toErrorCode(code))
                  << std::dec;
        if (position() >= 0) { // a stream that has failed may not know
            std::cout << " at " << position();
        }
        std::cout << ": " << text << '\n';
    }

    const Locator* locator_ = nullptr;
    bool hasErrors_ = false;
};

bool inspect(const std::string& path, bool eachEditUnit) {
    const auto file =
        boost::make_shared<boost::iostreams::stream<vexa::file_source>>(vexa::file_source(path));
    const auto reports = boost::make_shared<ReportPrinter>();
    const auto essence = boost::make_shared<EssencePrinter>(eachEditUnit);
    ProgressLine progress(path);
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
    } catch (const std::exception&) {
        essence->print();
        throw;
    }
    essence->print();
    return !reports->hasErrors();
}

} // namespace

int main(int argc, char* argv[]) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool eachEditUnit = arguments.size() == 2 && arguments[0] == "--edit-units";
    if (arguments.size() != (eachEditUnit ? 2U : 1U)) {
        std::cerr << "usage: inspect [--edit-units] FILE\n";
        return 2;
    }
    const std::string& path = arguments.back();
    try {
        const bool sound = inspect(path, eachEditUnit);
        if (!std::cout.flush()) {
            throw std::runtime_error("unsuccessful output");
        }
        return sound ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cout.flush();
        std::cerr << "inspect: " << path << ": " << failure.what() << '\n';
        return 2;
    }
}
