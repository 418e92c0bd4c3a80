// A file's structure and sections by way of MXFReader, on streams that can and can't seek.

#include "mxf/MXFReader.h"
#include "support.h"

#include <array>

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

} // namespace

void fuzz::testInput(const Input& input) {
    MXFReader reader;
    readEachWay(input, [&](std::istream& stream, Run& run) {
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
    });
}
