// Whole files, damaged everywhere: every read ends in events and reports or in one of the failures
// that a reader may throw, and never in silence about what is missing.

#include "mxf/MXFReader.h"
#include "support/FileBuilder.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vexa/vexa.h>

namespace {

using Bytes = KLVBytes::Bytes;

/// Remembers the first broken rule.
class Rules {
public:
    void require(bool holds, const char* rule) {
        if (!holds && broken_.empty()) {
            broken_ = rule;
        }
    }
    const std::string& broken() const { return broken_; }

private:
    std::string broken_;
};

/// Holds structure events to their grammar.
class CheckingStructure : public MXFStructureHandler {
public:
    explicit CheckingStructure(Rules& rules) : rules_(rules) {}

    bool inPartition() const { return state_ == 'p'; }
    /// Ended, or never begun.
    bool isComplete() const { return state_ == 'e' || state_ == '-'; }
    std::size_t partitions() const { return partitions_; }

    void runIn(std::uint64_t) override { go("-", 'r', "runIn"); }
    void startStructure() override { go("-r", 's', "startStructure"); }
    void startPartition(const KLVKey&, const MXFPartitionPack&, std::uint64_t) override {
        go("s", 'p', "startPartition");
        ++partitions_;
    }
    void endPartition(const KLVKey&) override { go("p", 's', "endPartition"); }
    void randomIndex(const MXFRandomIndex& table) override {
        go("s", 'x', "randomIndex");
        rules_.require(!table.empty(), "randomIndex has entries");
    }
    void endStructure(bool) override { go("sx", 'e', "endStructure"); }

private:
    void go(const std::string& from, char to, const char* event) {
        rules_.require(from.find(state_) != std::string::npos, event);
        state_ = to;
    }

    Rules& rules_;
    char state_ = '-';
    std::size_t partitions_ = 0;
};

/// Holds a section's stream to its place; wants everything.
class CheckingSection : public DullKLVHandler {
public:
    CheckingSection(Rules& rules, const CheckingStructure& structure)
        : rules_(rules), structure_(structure) {}

    bool isOpen() const { return open_; }

    void startStream(bool) override {
        rules_.require(!open_ && structure_.inPartition(), "startStream");
        open_ = true;
    }
    void endStream(bool aborted) override {
        rules_.require(open_ && structure_.inPartition(), "endStream");
        rules_.require(aborted || depth_ == 0, "endStream behind an element");
        open_ = false;
        depth_ = 0;
    }
    bool startIndividualItem(const KLVKey&, std::uint64_t, std::uint8_t**) override {
        return start();
    }
    void endIndividualItem(const KLVKey&) override { end(); }
    bool startUniversalSet(const KLVKey&, std::uint64_t) override { return start(); }
    void endUniversalSet(const KLVKey&) override { end(); }
    bool startLocalSet(const KLVKey&, std::uint64_t, TagType, LengthType) override {
        return start();
    }
    void endLocalSet(const KLVKey&) override { end(); }
    bool startLocalItem(std::uint32_t, std::uint64_t, std::uint8_t**) override { return start(); }
    void endLocalItem(std::uint32_t) override { end(); }
    bool startFixedLengthPack(const KLVKey&, std::uint64_t, std::uint8_t**) override {
        return start();
    }
    void endFixedLengthPack(const KLVKey&) override { end(); }
    bool startVariableLengthPack(const KLVKey&, std::uint64_t, LengthType) override {
        return start();
    }
    void endVariableLengthPack(const KLVKey&) override { end(); }

private:
    bool start() {
        rules_.require(open_, "start of an element");
        ++depth_;
        return true;
    }
    void end() { rules_.require(open_ && depth_-- > 0, "end of an element"); }

    Rules& rules_;
    const CheckingStructure& structure_;
    bool open_ = false;
    int depth_ = 0;
};

/// How a file is read.
struct Mode {
    bool seekable;
    bool wantsSections;
    bool streamThrows = false;
};

constexpr std::ios_base::iostate everyFailure =
    std::ios_base::badbit | std::ios_base::failbit | std::ios_base::eofbit;

constexpr Mode modes[] = {{true, true}, {true, false}, {false, true}, {false, false}};

/// All modes for a file of a few hundred bytes; else one, in turn.
std::vector<Mode> modesFor(const Bytes& file, std::size_t turn) {
    return file.size() < 1000 ? std::vector<Mode>(std::begin(modes), std::end(modes))
                              : std::vector<Mode>{modes[turn % std::size(modes)]};
}

std::string nameOf(const Mode& mode) {
    return std::string(mode.seekable ? "seekable" : "unseekable") +
           (mode.wantsSections ? ", all sections" : ", structure only") +
           (mode.streamThrows ? ", stream throws" : "");
}

/// How a read ended.
struct Outcome {
    /// Of the fatal fault, or of what is no fault of the file.
    std::string failure;
    klvutil::ErrorCode code{};
    std::size_t partitions = 0;
};

/// Reads a file, and holds the read to all that is always true.
Outcome read(const Bytes& bytes, const Mode& mode, std::uint64_t failAt = UINT64_MAX) {
    TestStreamOptions options;
    options.seekable = mode.seekable;
    options.readSize = 512;
    options.failAt = failAt;
    TestStream in(bytes, options);
    if (mode.streamThrows) {
        in.exceptions(everyFailure);
    }
    Rules rules;
    CheckingStructure structure(rules);
    CheckingSection sections[] = {{rules, structure}, {rules, structure}, {rules, structure}};
    KeepingErrorHandler errors;
    MXFReader reader;
    reader.setStructureHandler(&structure);
    reader.setErrorHandler(&errors);
    if (mode.wantsSections) {
        reader.setMetadataHandler(&sections[0]);
        reader.setIndexHandler(&sections[1]);
        reader.setEssenceHandler(&sections[2]);
    }

    Outcome outcome;
    int fatalReports = 0;
    try {
        reader.parse(in);
    } catch (const klvutil::parse_error& error) {
        outcome.failure = error.what();
        outcome.code = klvutil::toErrorCode(error.code());
        fatalReports = 1;
        const auto last =
            errors.reports().empty() ? KeepingErrorHandler::Report{} : errors.reports().back();
        rules.require(last.code == error.code() && last.text == error.what(),
                      "the report of what is thrown");
    } catch (const util::assertion_failure& assertion) {
        outcome.failure = assertion.what();
        rules.require(false, "bad input breaks no contract");
    }
    rules.require(!mode.streamThrows || in.exceptions() == everyFailure,
                  "the stream throws again as it did");
    for (const KeepingErrorHandler::Report& report : errors.reports()) {
        fatalReports -= report.severity == KeepingErrorHandler::Severity::Fatal ? 1 : 0;
    }
    rules.require(fatalReports == 0, "a fatal report for what is thrown, and no other");
    for (const CheckingSection& section : sections) {
        rules.require(!section.isOpen(), "every stream ends");
    }
    rules.require(structure.isComplete(), "the structure ends");
    rules.require(in.buffer().bytesRead() <= 2 * bytes.size() + 1024 * in.buffer().seeks() + 1024,
                  "a byte is read once, but for what a seek loses");
    EXPECT_EQ("", rules.broken()) << nameOf(mode) << ": " << outcome.failure;
    outcome.partitions = structure.partitions();
    return outcome;
}

Bytes cut(const Bytes& bytes, std::size_t size) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

/// A small file by another writer: a sample without its long essence elements.
Bytes shortened(const std::string& name) {
    const Bytes whole = testData(name);
    Bytes bytes;
    for (const WalkedElement& element : walkKLV(whole)) {
        if (element.end - element.offset < 4096) {
            const auto begin = whole.begin();
            bytes.insert(bytes.end(), begin + static_cast<std::ptrdiff_t>(element.offset),
                         begin + static_cast<std::ptrdiff_t>(element.end));
        }
    }
    return bytes;
}

struct NamedFile {
    std::string name;
    Bytes bytes;
    std::size_t runIn = 0;
};

std::vector<NamedFile> smallFiles() {
    FileBuilder behindRunIn = soundFile();
    behindRunIn.runIn.counting(40).raw({0x06, 0x0E, 0x2B});
    // Sets in sets, items in packs, and every other form.
    KLVBytes nested;
    nested.klv(someUniversalSetKey, KLVBytes(someItem(3)).klv(someWrapperKey, KLVBytes({1, 2})));
    KLVBytes& essence = behindRunIn.partitions[1].body;
    essence.klv(someUniversalSetKey, KLVBytes(nested).key(someLabelKey));
    essence.klv(someVariablePackKey, KLVBytes({2, 1, 2, 0, 1, 9}));
    return {{"built", behindRunIn.layOut().bytes().bytes(), 43},
            {"first writer", shortened("vc3_720p25_clip_wrapped.mxf")},
            {"second writer", shortened("uncompressed_second_writer.mxf")}};
}

/// What the elements of a whole file say of its first `size` bytes.
struct Remains {
    bool endsBehindElement = false;
    /// ... and outside counted sections.
    bool isWhole = false;
    std::size_t packs = 0;
};

Remains remainsOf(const NamedFile& file, const std::vector<WalkedElement>& elements,
                  std::size_t size) {
    Remains remains;
    std::uint64_t sectionsEnd = 0;
    for (std::size_t i = 0; i < elements.size() && elements[i].end <= size; ++i) {
        if (MXFPartitionKey::isPartitionKey(elements[i].key)) {
            ++remains.packs;
            const bool hasFill = i + 1 < elements.size() && elements[i + 1].key[8] == 3 &&
                                 elements[i + 1].end <= size;
            sectionsEnd = elements[hasFill ? i + 1 : i].end +
                          numberAt(file.bytes, elements[i].value + 32, 8) +
                          numberAt(file.bytes, elements[i].value + 40, 8);
        }
        remains.endsBehindElement = elements[i].end == size;
        remains.isWhole = remains.endsBehindElement && sectionsEnd <= size;
    }
    return remains;
}

} // namespace

TEST(Damage, SmallFilesAreReadWhole) {
    for (const NamedFile& file : smallFiles()) {
        ASSERT_LT(file.bytes.size(), 10000U) << file.name;
        for (const Mode& mode : modes) {
            const Outcome outcome = read(file.bytes, mode);
            EXPECT_EQ("", outcome.failure) << file.name << ", " << nameOf(mode);
            EXPECT_EQ(3U, outcome.partitions) << file.name << ", " << nameOf(mode);
        }
    }
}

// Wherever a file is cut, that is noticed, unless nothing shows it.
TEST(Damage, ACutIsNoticedAtEveryLength) {
    for (const NamedFile& file : smallFiles()) {
        const std::vector<WalkedElement> elements = walkKLV(file.bytes, file.runIn);
        for (std::size_t size = 0; size < file.bytes.size(); ++size) {
            const Remains remains = remainsOf(file, elements, size);
            for (const Mode& mode : modesFor(file.bytes, size)) {
                const Outcome outcome = read(cut(file.bytes, size), mode);
                const klvutil::ErrorCode expected =
                    size < file.runIn + 11      ? klvutil::ErrorCode::InvalidRunIn
                    : remains.isWhole           ? klvutil::ErrorCode{}
                    : remains.endsBehindElement ? klvutil::ErrorCode::IncorrectByteCount
                                                : klvutil::ErrorCode::StreamFailure;
                ASSERT_EQ(expected, outcome.code) << file.name << " of " << size << " bytes, "
                                                  << nameOf(mode) << ": " << outcome.failure;
                ASSERT_FALSE(HasFailure()) << file.name << " of " << size << " bytes";
                // The last pack may still have waited for its fill item.
                ASSERT_LE(outcome.partitions, remains.packs);
                ASSERT_GE(outcome.partitions + 1, remains.packs + (remains.isWhole ? 1 : 0))
                    << file.name << " of " << size << " bytes, " << nameOf(mode);
            }
        }
    }
}

TEST(Damage, AFailingStreamIsNoticedAtEveryByte) {
    const NamedFile file = smallFiles().front();
    for (const Mode& mode : modes) {
        const Mode throwing = {mode.seekable, mode.wantsSections, true};
        EXPECT_EQ("", read(file.bytes, throwing).failure);
        for (std::uint64_t failAt = 0; failAt <= file.bytes.size(); ++failAt) {
            for (const Mode& either : {mode, throwing}) {
                const Outcome outcome = read(file.bytes, either, failAt);
                ASSERT_EQ(klvutil::ErrorCode::StreamFailure, outcome.code)
                    << "fails at " << failAt << ", " << nameOf(either) << ": " << outcome.failure;
                ASSERT_FALSE(HasFailure()) << "fails at " << failAt;
            }
        }
    }
}

TEST(Damage, AnyBitMayBeWrong) {
    for (const NamedFile& file : smallFiles()) {
        Bytes bytes = file.bytes;
        std::size_t unclean = 0;
        const std::size_t count = std::min<std::size_t>(bytes.size(), 2000);
        for (std::size_t bit = 0; bit < 8 * count; ++bit) {
            bytes[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
            for (const Mode& mode : modesFor(bytes, bit)) {
                const Outcome outcome = read(bytes, mode);
                unclean += outcome.failure.empty() ? 0U : 1U;
                ASSERT_FALSE(HasFailure())
                    << file.name << " with bit " << bit << " of " << nameOf(mode);
            }
            bytes[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
        }
        // Damage to keys, lengths and counts can't be lived with.
        EXPECT_LT(500U, unclean) << file.name;
        EXPECT_EQ(file.bytes, bytes);
    }
}

TEST(Damage, LargeFilesMayBeCutToo) {
    for (const char* name :
         {"avc_longgop_50p.mxf", "d10_30_625.mxf", "longgop_2997_dropframe.mxf"}) {
        const NamedFile file{name, testData(name)};
        const std::vector<WalkedElement> elements = walkKLV(file.bytes);
        ASSERT_EQ(file.bytes.size(), elements.back().end);
        for (std::size_t size = 20011; size < file.bytes.size(); size += 20011) {
            const Remains remains = remainsOf(file, elements, size);
            for (const Mode& mode : modes) {
                const Outcome outcome = read(cut(file.bytes, size), mode);
                EXPECT_EQ(!remains.isWhole, outcome.code == klvutil::ErrorCode::StreamFailure)
                    << name << " of " << size << " bytes, " << nameOf(mode);
                EXPECT_EQ(remains.packs, outcome.partitions);
            }
        }
    }
}
