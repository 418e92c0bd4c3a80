// Whole files, damaged everywhere: every read ends in events and reports or in one of the failures
// that a reader may throw, and never in silence about what is missing. Checking handlers hold each
// read to the grammar of its events; a finding of theirs ends the process.

#include "mxf/MXFReader.h"
#include "support/CheckingHandlers.h"
#include "support/FileBuilder.h"
#include "support/TestStream.h"

#include <vexa/vexa.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <iostream>

namespace {

using Bytes = KLVBytes::Bytes;
using klvutil::ErrorCode;

/// How a file is read.
struct Mode {
    bool seekable;
    bool wantsSections;
    bool streamThrows = false;
};

constexpr Mode modes[] = {{true, true}, {true, false}, {false, true}, {false, false}};

/// What is being read.
std::string present;

/// Of a read: how it ended, and the partitions it told of.
struct Outcome {
    ErrorCode code{};
    std::size_t partitions = 0;
};

struct Counter : DullMXFStructureHandler {
    void startPartition(const KLVKey&, const MXFPartitionPack&, std::uint64_t) override {
        ++partitions;
    }
    void startStructure() override { ++open; }
    void endStructure(bool) override { --open; }
    std::size_t partitions = 0;
    int open = 0;
};

/// Reads a file, and holds the read to all that is always true.
Outcome read(const Bytes& bytes, const Mode& mode, const std::string& name,
             std::uint64_t failAt = UINT64_MAX) {
    present = name + (mode.seekable ? ", seekable" : ", unseekable") +
              (mode.wantsSections ? ", all sections" : ", structure only") +
              (mode.streamThrows ? ", stream throws" : "");
    std::signal(SIGABRT, [](int) { std::cerr << "in " << present << '\n'; });
    constexpr std::ios_base::iostate everyFailure =
        std::ios_base::badbit | std::ios_base::failbit | std::ios_base::eofbit;
    TestStream in(bytes, {mode.seekable, 512, failAt});
    in.exceptions(mode.streamThrows ? everyFailure : std::ios_base::goodbit);
    checking::Trail trail;
    checking::CheckingKLVHandler sections(trail, checking::Wants::Everything);
    checking::CheckingErrorHandler errors(trail);
    Counter structure;
    MXFReader reader;
    reader.setStructureHandler(&structure);
    reader.setErrorHandler(&errors);
    if (mode.wantsSections) {
        reader.setMetadataHandler(&sections);
        reader.setIndexHandler(&sections);
        reader.setEssenceHandler(&sections);
    }
    Outcome outcome;
    checking::failureOf(&errors, [&] {
        try {
            reader.parse(in);
        } catch (const klvutil::parse_error& error) {
            outcome.code = klvutil::toErrorCode(error.code());
            throw;
        }
    });
    outcome.partitions = structure.partitions;
    EXPECT_FALSE(sections.isOpen() || structure.open != 0) << present;
    EXPECT_TRUE(!mode.streamThrows || in.exceptions() == everyFailure) << present;
    // A byte is read once, but for what a seek loses.
    EXPECT_LE(in.buffer().bytesRead(), 2 * bytes.size() + 1024 * in.buffer().seeks() + 1024)
        << present;
    return outcome;
}

struct NamedFile {
    std::string name;
    Bytes bytes;
    std::size_t runIn = 0;
};

/// A small file by another writer: a sample without its long essence elements.
NamedFile shortened(const std::string& name) {
    const Bytes whole = testData(name);
    NamedFile file{name, {}};
    for (const WalkedElement& element : walkKLV(whole)) {
        if (element.end - element.offset < 4096) {
            file.bytes.insert(file.bytes.end(), &whole[element.offset],
                              &whole[element.end - 1] + 1);
        }
    }
    return file;
}

std::vector<NamedFile> smallFiles() {
    FileBuilder built = soundFile();
    built.runIn.counting(40).raw({0x06, 0x0E, 0x2B});
    // Sets in sets, items in packs, and every other form.
    KLVBytes nested;
    nested.klv(someUniversalSetKey, KLVBytes(someItem(3)).klv(someWrapperKey, KLVBytes({1, 2})));
    built.partitions[1].body.klv(someUniversalSetKey, nested.key(someLabelKey));
    built.partitions[1].body.klv(someVariablePackKey, KLVBytes({2, 1, 2, 0, 1, 9}));
    return {{"built", built.layOut().bytes().bytes(), 43},
            shortened("vc3_720p25_clip_wrapped.mxf"),
            shortened("uncompressed_second_writer.mxf")};
}

/// What the elements of a whole file say of its first `size` bytes: the fault, and how many packs.
Outcome remainsOf(const NamedFile& file, const std::vector<WalkedElement>& elements,
                  std::size_t size) {
    std::size_t end = 0;
    std::uint64_t sectionsEnd = 0;
    Outcome remains;
    for (std::size_t i = 0; i < elements.size() && elements[i].end <= size; ++i) {
        end = elements[i].end;
        if (MXFPartitionKey::isPartitionKey(elements[i].key)) {
            ++remains.partitions;
            const bool hasFill = i + 1 < elements.size() && elements[i + 1].key[8] == 3 &&
                                 elements[i + 1].end <= size;
            sectionsEnd = elements[hasFill ? i + 1 : i].end +
                          numberAt(file.bytes, elements[i].value + 32, 8) +
                          numberAt(file.bytes, elements[i].value + 40, 8);
        }
    }
    remains.code = size < file.runIn + 11 ? ErrorCode::InvalidRunIn
                   : end != size          ? ErrorCode::StreamFailure
                   : sectionsEnd > size   ? ErrorCode::IncorrectByteCount
                                          : ErrorCode{};
    return remains;
}

} // namespace

// Wherever a file is cut, that is noticed, unless nothing shows it.
TEST(Damage, ACutIsNoticedAtEveryLength) {
    std::vector<NamedFile> files = smallFiles();
    for (const char* name :
         {"avc_longgop_50p.mxf", "d10_30_625.mxf", "longgop_2997_dropframe.mxf"}) {
        files.push_back({name, testData(name)});
    }
    for (const NamedFile& file : files) {
        const std::vector<WalkedElement> elements = walkKLV(file.bytes, file.runIn);
        ASSERT_EQ(file.bytes.size(), elements.back().end);
        const std::size_t step = file.bytes.size() < 10000 ? 1 : 20011;
        for (std::size_t size = file.bytes.size() % step; size <= file.bytes.size(); size += step) {
            const Outcome expected = remainsOf(file, elements, size);
            const Bytes cut(file.bytes.begin(),
                            file.bytes.begin() + static_cast<std::ptrdiff_t>(size));
            for (std::size_t i = 0; i < std::size(modes); ++i) {
                const Outcome outcome =
                    read(cut, modes[i], file.name + " of " + std::to_string(size));
                ASSERT_EQ(expected.code, outcome.code) << present;
                ASSERT_LE(outcome.partitions, expected.partitions) << present;
                // The last pack may still have waited for its fill item.
                const std::size_t waiting = expected.code == ErrorCode{} ? 0 : 1;
                ASSERT_GE(outcome.partitions + waiting, expected.partitions) << present;
                ASSERT_FALSE(HasFailure());
            }
        }
    }
}

TEST(Damage, AFailingStreamIsNoticedAtEveryByte) {
    const NamedFile file = smallFiles().front();
    for (Mode mode : modes) {
        for (const bool throws : {false, true}) {
            mode.streamThrows = throws;
            for (std::uint64_t failAt = 0; failAt <= file.bytes.size(); ++failAt) {
                const std::string name = "failing at " + std::to_string(failAt);
                ASSERT_EQ(ErrorCode::StreamFailure, read(file.bytes, mode, name, failAt).code)
                    << present;
                ASSERT_FALSE(HasFailure());
            }
        }
    }
}

TEST(Damage, AnyBitMayBeWrong) {
    for (const NamedFile& file : smallFiles()) {
        Bytes bytes = file.bytes;
        std::size_t unclean = 0;
        for (std::size_t bit = 0; bit < 8 * std::min<std::size_t>(bytes.size(), 2000); ++bit) {
            bytes[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
            const std::size_t turn = bit + bit / 8;
            for (const Mode& mode : {modes[turn % 4], modes[(turn + 2) % 4]}) {
                const Outcome outcome =
                    read(bytes, mode, file.name + ", bit " + std::to_string(bit));
                unclean += outcome.code != ErrorCode{} ? 1U : 0U;
            }
            ASSERT_FALSE(HasFailure());
            bytes[bit / 8] = file.bytes[bit / 8];
        }
        // Damage to keys, lengths and counts can't be lived with.
        EXPECT_LT(500U, unclean) << file.name;
    }
}
