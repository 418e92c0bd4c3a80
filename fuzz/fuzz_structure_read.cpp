// A file's structure and sections by way of MXFReader, on streams that can and can't seek, and its
// structure by way of createVEXAReader.

#include "mxf/MXFReader.h"
#include "support.h"

#include <vexa/front/VEXAReader.h>
#include <vexa/mxf/MXFPartitionKey.h>

#include <boost/make_shared.hpp>

namespace {

using fuzz::require;
using fuzz::Trail;

enum Section : unsigned { None, Metadata, Index, Essence };

/// Holds the structure events against their grammar, and the sections against their partition.
class CheckingStructureHandler : public MXFStructureHandler {
public:
    /// `expected` has a bit for each section for which a handler has been set.
    explicit CheckingStructureHandler(Trail& trail, unsigned expected = 0)
        : trail_(trail), expected_(expected) {}

    /// A digest of what the structure events tell.
    std::uint64_t digest() const { return structure_.digest(); }
    /// The parse failed before the structure, or the structure has ended.
    void checkEnd() { go("begin run-in ended", "ended"); }

    void runIn(std::uint64_t length) override {
        go("begin", "run-in");
        require(length != 0 && length <= 65535, "a run-in is no longer than it may be");
        structure_.add("runIn", {length});
    }
    void startStructure() override { go("begin run-in", "structure"); }
    void endStructure(bool) override { go("structure random-index", "ended"); }

    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override {
        go("structure", "partition");
        require(MXFPartitionKey::isPartitionKey(key), "a partition has such a key");
        const std::uint64_t shortest = KLVKey::size + 1 + 88;
        require(packByteCount >= shortest + KLVKey::size * pack.essenceContainers.size(),
                "a pack counts its own bytes");
        section_ = None;
        key_ = key;
        byteCounts_ = {0, pack.headerByteCount, pack.indexByteCount, UINT64_MAX};
        structure_.add("startPartition", {fuzz::digestOf(key), packByteCount, pack.thisPartition,
                                          pack.headerByteCount, pack.indexByteCount, pack.bodySID});
    }
    void endPartition(const KLVKey& key) override {
        go("partition", "structure");
        require(key == key_, "endPartition has its startPartition");
    }

    void randomIndex(const MXFRandomIndex& table) override {
        go("structure", "random-index");
        require(!table.empty(), "the random index has entries");
        for (const MXFRandomIndexEntry& entry : table) {
            structure_.add("randomIndex", {entry.bodySID, entry.byteOffset});
        }
    }

    /// Returns its size, as announced.
    std::uint64_t startSection(Section section) {
        go("partition", "section");
        require(section > section_, "sections come in their order");
        for (unsigned between = section_ + 1; between < section; ++between) {
            require((expected_ >> between & 1) == 0 || byteCounts_[between] == 0,
                    "no section is left out");
        }
        section_ = section;
        return byteCounts_[section];
    }
    void endSection() { go("section", "partition"); }

private:
    void go(const std::string& from, const char* to) {
        if (from.find(state_) == std::string::npos) {
            fuzz::finding("from " + state_ + " to " + to);
        }
        state_ = to;
        trail_.add(to, {structure_.digest()});
    }

    Trail& trail_;
    Trail structure_;
    unsigned expected_;
    std::string state_ = "begin";
    Section section_ = None;
    KLVKey key_;
    std::array<std::uint64_t, 4> byteCounts_{};
};

class SectionHandler : public fuzz::CheckingKLVHandler {
public:
    SectionHandler(Trail& trail, fuzz::Wants wants, Section section,
                   CheckingStructureHandler& structure)
        : CheckingKLVHandler(trail, wants), section_(section), structure_(structure) {}

    void startStream(bool accurateLengths) override {
        announced_ = structure_.startSection(section_);
        limitTo(announced_);
        CheckingKLVHandler::startStream(accurateLengths);
    }

    void endStream(bool aborted) override {
        CheckingKLVHandler::endStream(aborted);
        require(aborted || section_ == Essence || byteCount() == announced_,
                "header metadata and index tables are as long as announced");
        structure_.endSection();
    }

private:
    Section section_;
    CheckingStructureHandler& structure_;
    std::uint64_t announced_ = 0;
};

/// The front tells the same structure, without sections and on a stream that doesn't fail.
void compareFront(const fuzz::Input& input, const std::string& failure, std::uint64_t structure) {
    Trail trail;
    const auto checking = boost::make_shared<CheckingStructureHandler>(trail);
    const auto errors = boost::make_shared<fuzz::CheckingErrorHandler>(trail);
    const auto reader = createVEXAReader(boost::make_shared<TestStream>(input.bytes));
    reader->setStructureHandler(checking);
    reader->setErrorHandler(errors);
    const std::string own = fuzz::failureOf(errors.get(), [&] { reader->read(); });
    checking->checkEnd();
    require(!failure.empty() || (own.empty() && checking->digest() == structure),
            "the structure is the same whatever is wanted of the sections");
}

} // namespace

void fuzz::testInput(const Input& input) {
    const unsigned expected = input.choice << Metadata;
    std::uint64_t digest = 0;
    MXFReader reader;
    const Run run = readEachWay(input, [&](std::istream& stream, Run& told) {
        CheckingStructureHandler structure(told.trail, expected);
        SectionHandler metadata(told.trail, input.wants, Metadata, structure);
        SectionHandler index(told.trail, input.wants, Index, structure);
        SectionHandler essence(told.trail, input.wants, Essence, structure);
        CheckingErrorHandler checking(told.trail);
        CheckingErrorHandler* const errors = input.withErrorHandler ? &checking : nullptr;
        const auto ifExpected = [&](SectionHandler& handler, Section section) {
            return (expected >> section & 1) != 0 ? &handler : nullptr;
        };
        reader.setStructureHandler(&structure);
        reader.setMetadataHandler(ifExpected(metadata, Metadata));
        reader.setIndexHandler(ifExpected(index, Index));
        reader.setEssenceHandler(ifExpected(essence, Essence));
        reader.setErrorHandler(errors);
        told.failure = failureOf(errors, [&] { reader.parse(stream); });
        structure.checkEnd();
        digest = structure.digest();
    });
    compareFront(input, run.failure, digest);
}
