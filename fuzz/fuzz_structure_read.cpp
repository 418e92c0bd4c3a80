// A file's structure and sections by way of MXFReader and of createVEXAReader, on streams that can
// and can't seek.

#include "mxf/MXFReader.h"
#include "support.h"

#include <boost/make_shared.hpp>
#include <vexa/front/VEXAReader.h>
#include <vexa/mxf/MXFPartitionKey.h>

namespace {

using fuzz::Input;
using fuzz::require;
using fuzz::Run;
using fuzz::Seeking;
using fuzz::Trail;

enum class Section { None, Metadata, Index, Essence };

/// Holds the structure events against their grammar, and the sections against their partition.
class CheckingStructureHandler : public MXFStructureHandler {
public:
    explicit CheckingStructureHandler(Trail& trail) : trail_(trail) {}

    bool isOpen() const { return open_; }
    /// A digest of the structure events alone.
    std::uint64_t digest() const { return structure_.digest(); }

    void runIn(std::uint64_t length) override {
        require(!open_ && length != 0 && length <= 65535, "a run-in comes first, if there is one");
        add("runIn", {length});
    }

    void startStructure() override {
        require(!open_, "startStructure comes once");
        open_ = true;
        add("startStructure", {});
    }

    void endStructure(bool aborted) override {
        require(open_ && !inPartition_, "endStructure follows the last partition");
        open_ = false;
        if (aborted) {
            trail_.markFailure();
        }
        add("endStructure", {aborted ? 1U : 0U});
    }

    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override {
        require(open_ && !inPartition_, "partitions follow one another");
        require(MXFPartitionKey::isPartitionKey(key), "a partition has such a key");
        const std::uint64_t shortest = KLVKey::size + 1 + 88;
        require(packByteCount >= shortest + KLVKey::size * pack.essenceContainers.size(),
                "a pack counts its own bytes");
        inPartition_ = true;
        section_ = Section::None;
        key_ = key;
        pack_ = pack;
        add("startPartition",
            {fuzz::digestOf(key), packByteCount, pack.majorVersion, pack.minorVersion, pack.kagSize,
             pack.thisPartition, pack.previousPartition, pack.footerPartition, pack.headerByteCount,
             pack.indexByteCount, pack.indexSID, pack.bodyOffset, pack.bodySID,
             fuzz::digestOf(pack.operationalPattern),
             fuzz::digestOf(pack.essenceContainers.data(),
                            KLVKey::size * pack.essenceContainers.size())});
    }

    void endPartition(const KLVKey& key) override {
        require(inPartition_ && fuzz::digestOf(key) == fuzz::digestOf(key_),
                "endPartition has its startPartition");
        require(!inSection_, "sections end before their partition");
        inPartition_ = false;
        add("endPartition", {});
    }

    void randomIndex(const MXFRandomIndex& table) override {
        require(open_ && !inPartition_, "the random index lies outside the partitions");
        require(!table.empty(), "the random index has entries");
        add("randomIndex", {table.size()});
        for (const MXFRandomIndexEntry& entry : table) {
            add("entry", {entry.bodySID, entry.byteOffset});
        }
    }

    /// Has a handler been set for it?
    void expect(Section section, bool expected) {
        expected_[static_cast<std::size_t>(section)] = expected;
    }

    void startSection(Section section) {
        require(inPartition_ && !inSection_, "sections lie in partitions, one after another");
        require(section > section_, "sections come in their order");
        checkNoneMissing(section);
        section_ = section;
        inSection_ = true;
    }

    void startElement(std::uint64_t offset) const {
        require(offset < byteCountOf(section_), "an element of a section begins within it");
    }

    void endSection(bool aborted, std::uint64_t byteCount) {
        require(inSection_, "a section ends once");
        inSection_ = false;
        if (aborted) {
            return;
        }
        require(section_ == Section::Essence || byteCount == byteCountOf(section_),
                "header metadata and index tables are as long as announced");
    }

private:
    std::uint64_t byteCountOf(Section section) const {
        switch (section) {
        case Section::Metadata:
            return pack_.headerByteCount;
        case Section::Index:
            return pack_.indexByteCount;
        default:
            return std::numeric_limits<std::uint64_t>::max();
        }
    }

    void checkNoneMissing(Section next) const {
        for (const Section between : {Section::Metadata, Section::Index}) {
            require(between <= section_ || between >= next || byteCountOf(between) == 0 ||
                        !expected_[static_cast<std::size_t>(between)],
                    "no section is left out");
        }
    }

    void add(const char* event, std::initializer_list<std::uint64_t> numbers) {
        trail_.add(event, numbers);
        structure_.add(event, numbers);
    }

    Trail& trail_;
    Trail structure_;
    bool open_ = false;
    bool inPartition_ = false;
    bool inSection_ = false;
    Section section_ = Section::None;
    std::array<bool, 4> expected_{};
    KLVKey key_;
    MXFPartitionPack pack_;
};

class SectionHandler : public fuzz::CheckingKLVHandler {
public:
    SectionHandler(Trail& trail, fuzz::Wants wants, Section section,
                   CheckingStructureHandler& structure)
        : CheckingKLVHandler(trail, wants), section_(section), structure_(structure) {}

protected:
    void streamStarted() override { structure_.startSection(section_); }
    void elementStarted(std::uint64_t offset) override { structure_.startElement(offset); }
    void streamEnded(bool aborted, std::uint64_t byteCount) override {
        structure_.endSection(aborted, byteCount);
    }

private:
    Section section_;
    CheckingStructureHandler& structure_;
};

/// What the input's last byte chooses.
struct Options {
    explicit Options(std::uint8_t byte)
        : wants(static_cast<fuzz::Wants>(byte & 3)), withMetadata((byte & 4) == 0),
          withIndex((byte & 8) == 0), withEssence((byte & 0x10) == 0),
          withErrorHandler((byte & 0x20) == 0), readSize((byte & 0x40) != 0 ? 7 : 4096),
          streamFails((byte & 0x83) == 0x83) {}

    fuzz::Wants wants;
    bool withMetadata;
    bool withIndex;
    bool withEssence;
    bool withErrorHandler;
    std::size_t readSize;
    bool streamFails;
};

struct FileRun : Run {
    std::uint64_t structure = 0;
};

FileRun readSections(MXFReader& reader, std::istream& stream, const Options& options,
                     std::uint64_t watched = 0) {
    FileRun run;
    run.trail = Trail(watched);
    CheckingStructureHandler structure(run.trail);
    SectionHandler metadata(run.trail, options.wants, Section::Metadata, structure);
    SectionHandler index(run.trail, options.wants, Section::Index, structure);
    SectionHandler essence(run.trail, options.wants, Section::Essence, structure);
    fuzz::CheckingErrorHandler errors(run.trail);
    structure.expect(Section::Metadata, options.withMetadata);
    structure.expect(Section::Index, options.withIndex);
    reader.setStructureHandler(&structure);
    reader.setMetadataHandler(options.withMetadata ? &metadata : nullptr);
    reader.setIndexHandler(options.withIndex ? &index : nullptr);
    reader.setEssenceHandler(options.withEssence ? &essence : nullptr);
    reader.setErrorHandler(options.withErrorHandler ? &errors : nullptr);
    run.failure = fuzz::failureOf(options.withErrorHandler ? &errors : nullptr,
                                  [&] { reader.parse(stream); });
    run.structure = structure.digest();
    require(!structure.isOpen(), "endStructure follows the parse");
    return run;
}

FileRun readByFront(VEXAReader& reader, bool withErrorHandler) {
    FileRun run;
    const auto structure = boost::make_shared<CheckingStructureHandler>(run.trail);
    const auto errors = boost::make_shared<fuzz::CheckingErrorHandler>(run.trail);
    reader.setStructureHandler(structure);
    reader.setErrorHandler(withErrorHandler ? errors : nullptr);
    run.failure =
        fuzz::failureOf(withErrorHandler ? errors.get() : nullptr, [&] { reader.read(); });
    reader.setStructureHandler(nullptr);
    reader.setErrorHandler(nullptr);
    run.structure = structure->digest();
    require(!structure->isOpen(), "endStructure follows the parse");
    return run;
}

/// The front does what the reader without section handlers does, and does it again.
void compareFront(const Input& input, const Options& options, const FileRun& structureOnly) {
    const auto stream =
        boost::make_shared<fuzz::InputStream>(input, Seeking::WithinData, options.readSize);
    const auto reader = createVEXAReader(stream);
    for (int pass = 0; pass < 2; ++pass) {
        checkSame(structureOnly, readByFront(*reader, options.withErrorHandler),
                  Seeking::WithinData);
        stream->clear();
        stream->seekg(0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const Input input{data, size - 1};
    const Options options(data[size - 1]);
    const fuzz::AllocationLimit limit(fuzz::AllocationLimit::forInput(size));
    MXFReader reader;
    const auto read = [&](Seeking seeking, const Options& with, std::uint64_t watched) {
        fuzz::InputStream stream(input, seeking, with.readSize,
                                 with.streamFails ? input.size / 2 : fuzz::InputStream::never);
        return readSections(reader, stream, with, watched);
    };

    const FileRun unseekable = read(Seeking::None, options, 0);
    for (const Seeking seeking : {Seeking::WithinData, Seeking::Anywhere}) {
        const FileRun seekable = read(seeking, options, unseekable.trail.countBeforeFailure());
        // A seek may cross the place where reading fails.
        if (!options.streamFails) {
            checkSame(unseekable, seekable, seeking);
        }
    }

    Options noSections = options;
    noSections.withMetadata = noSections.withIndex = noSections.withEssence = false;
    noSections.streamFails = false;
    const FileRun structureOnly = read(Seeking::None, noSections, 0);
    compareFront(input, noSections, structureOnly);
    require(!unseekable.failure.empty() || options.streamFails ||
                (structureOnly.failure.empty() && structureOnly.structure == unseekable.structure),
            "the structure is the same whatever is wanted of the sections");
    return 0;
}
