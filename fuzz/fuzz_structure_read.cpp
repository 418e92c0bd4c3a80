// A file's structure and sections by way of MXFReader, on streams that can and can't seek, and its
// structure by way of createVEXAReader.

#include "mxf/MXFReader.h"
#include "support.h"

#include <vexa/front/VEXAReader.h>

#include <boost/make_shared.hpp>

namespace {

using fuzz::require;

enum Section : unsigned { Metadata, Index, Essence };

/// Knows how long the sections of the present partition are, and which was the last to come.
struct Structure : StructureRecorder {
    using StructureRecorder::StructureRecorder;

    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override {
        byteCounts = {pack.headerByteCount, pack.indexByteCount, UINT64_MAX};
        next = Metadata;
        StructureRecorder::startPartition(key, pack, packByteCount);
    }

    std::array<std::uint64_t, 3> byteCounts{};
    unsigned next = Metadata;
};

/// Holds a section against its partition.
class SectionHandler : public KLVRecorder {
public:
    /// `expected` has a bit for each section for which a handler has been set.
    SectionHandler(Recording& recording, Section section, Structure& structure, unsigned expected)
        : KLVRecorder(recording, {"MIE"[section]}), section_(section), structure_(structure),
          expected_(expected) {}

    void setLocator(const Locator* locator) override {
        locator_ = locator;
        KLVRecorder::setLocator(locator);
    }
    void startStream(bool accurateLengths) override {
        require(section_ >= structure_.next, "sections come in their order");
        for (unsigned before = structure_.next; before < section_; ++before) {
            require((expected_ >> before & 1) == 0 || structure_.byteCounts[before] == 0,
                    "no section is left out");
        }
        structure_.next = section_ + 1;
        start_ = locator_->getPosition();
        KLVRecorder::startStream(accurateLengths);
    }
    void endStream(bool aborted) override {
        const auto byteCount = static_cast<std::uint64_t>(locator_->getPosition() - start_);
        require(aborted || section_ == Essence || byteCount == structure_.byteCounts[section_],
                "header metadata and index tables are as long as announced");
        KLVRecorder::endStream(aborted);
    }

private:
    Section section_;
    Structure& structure_;
    unsigned expected_;
    const Locator* locator_ = nullptr;
    std::streampos start_;
};

/// The front tells the same structure, without sections and on a stream that doesn't fail.
void compareFront(const fuzz::Input& input, const std::string& failure, const Lines& structure) {
    const auto errors = boost::make_shared<KeepingErrorHandler>();
    const auto reader = createVEXAReader(boost::make_shared<TestStream>(input.bytes));
    fuzz::Run run(false);
    reader->setStructureHandler(boost::make_shared<StructureRecorder>(run.recording));
    reader->setErrorHandler(errors);
    run.parse([&] { reader->read(); });
    require(!failure.empty() || (run.failure.empty() && run.recording.lines() == structure),
            "the structure is the same whatever is wanted of the sections");
}

} // namespace

void fuzz::testInput(const Input& input) {
    Lines structureLines;
    MXFReader reader;
    const std::string failure = readEachWay(input, [&](std::istream& stream, Run& run) {
        Structure structure(run.recording);
        SectionHandler metadata(run.recording, Metadata, structure, input.choice);
        SectionHandler index(run.recording, Index, structure, input.choice);
        SectionHandler essence(run.recording, Essence, structure, input.choice);
        const auto ifExpected = [&](SectionHandler& handler, Section section) {
            handler.want(input.wants);
            return (input.choice >> section & 1) != 0 ? &handler : nullptr;
        };
        reader.setStructureHandler(&structure);
        reader.setMetadataHandler(ifExpected(metadata, Metadata));
        reader.setIndexHandler(ifExpected(index, Index));
        reader.setEssenceHandler(ifExpected(essence, Essence));
        reader.setErrorHandler(run.errors);
        run.parse([&] { reader.parse(stream); });
        structureLines.clear();
        for (const std::string& line : run.recording.lines()) {
            const bool isStructure = line.rfind("start", 0) == 0 || line.rfind("end", 0) == 0 ||
                                     line.rfind("run", 0) == 0 || line.rfind("random", 0) == 0;
            if (isStructure && line.find("Parse") == std::string::npos) {
                structureLines.push_back(line);
            }
        }
    });
    compareFront(input, failure, structureLines);
}
