#include "mxf/MXFReader.h"
#include "support/AllocationCount.h"
#include "support/Failures.h"
#include "support/FileBuilder.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <gtest/gtest.h>

namespace {

/// A file with one fault, behind a run-in that ends in a false start.
KLVBytes fileWithRunIn() {
    FileBuilder file = soundFile();
    file.runIn.counting(300).raw({0x06, 0x0E, 0x2B, 0x34, 2, 5});
    file.partitions[1].pack.thisPartition = 5;
    return file.bytes();
}

/// Everything that a reader with handlers for all sections tells.
std::string read(std::istream& in, bool skipRunIn = true) {
    Recording recording;
    StructureRecorder structure(recording);
    KLVRecorder metadata(recording, "M");
    KLVRecorder index(recording, "I");
    KLVRecorder essence(recording, "E");
    KeepingErrorHandler errors(recording);
    MXFReader reader;
    reader.setSkipRunIn(skipRunIn);
    reader.setStructureHandler(&structure);
    reader.setMetadataHandler(&metadata);
    reader.setIndexHandler(&index);
    reader.setEssenceHandler(&essence);
    reader.setErrorHandler(&errors);
    const std::string failure = failureOf([&] { reader.parse(in); });
    return recording.text() + failure;
}

/// Heap allocations of a read.
std::uint64_t allocationsFor(const KLVBytes& bytes, bool seekable, KLVHandler* sections) {
    TestStreamOptions options;
    options.seekable = seekable;
    TestStream in(bytes.bytes(), options);
    MXFReader reader;
    reader.setMetadataHandler(sections);
    reader.setIndexHandler(sections);
    reader.setEssenceHandler(sections);
    const std::uint64_t before = allocationCount();
    reader.parse(in);
    return allocationCount() - before;
}

} // namespace

TEST(MXFReader, PositionsCountFromTheBeginningOfTheStream) {
    const std::string expected =
        "runIn 306\nstartParse\nstartStructure\n"
        "startPartition header 4 this 0 packByteCount 128\n"
        "M: setLocator\nM: startStream accurate @434\nM: form 83 @454\n"
        "M: startLocalSet 7E04 10 tag 1 length 2 @454\n"
        "M: startLocalItem 1234 6 @458\nM: value 6 00 01 02 03 @464\nM: endLocalItem 1234 @464\n"
        "M: endLocalSet 7E04 @464\n"
        "M: startIndividualItem fill 0 @484\nM: endIndividualItem fill @484\n"
        "M: endStream @484\n"
        "endPartition header\n"
        "warning 4C4C0104 @612 incorrect thisPartition\n"
        "startPartition body 4 this 5 packByteCount 128\n"
        "I: setLocator\nI: startStream accurate @612\nI: form 83 @632\n"
        "I: startFixedLengthPack 7E06 10 @632\nI: value 10 00 01 02 03 @642\n"
        "I: endFixedLengthPack 7E06 @642\n"
        "I: endStream @642\n"
        "E: setLocator\nE: startStream accurate @642\nE: form 83 @662\n"
        "E: startIndividualItem 7E01 10 @662\nE: value 10 00 01 02 03 @672\n"
        "E: endIndividualItem 7E01 @672\n"
        "E: startIndividualItem fill 0 @692\nE: endIndividualItem fill @692\n"
        "E: endStream @692\n"
        "endPartition body\n"
        "startPartition footer 4 this 386 packByteCount 128\nendPartition footer\n"
        "randomIndex 0:0 1:178 0:386\nendStructure\nendParse\n";
    for (const bool seekable : {true, false}) {
        for (const std::size_t readSize : {1U, 2U, 7U, 11U, 4096U}) {
            TestStreamOptions options;
            options.seekable = seekable;
            options.readSize = readSize;
            TestStream in(fileWithRunIn().bytes(), options);
            const std::streambuf* const buffer = in.rdbuf();
            EXPECT_EQ(expected, read(in)) << (seekable ? "seekable " : "unseekable ") << readSize;
            EXPECT_EQ(buffer, in.rdbuf());
            EXPECT_EQ(std::ios_base::eofbit, in.rdstate());
        }
    }
}

TEST(MXFReader, SkipsNothingUnlessAsked) {
    TestStream in(fileWithRunIn().bytes());
    const std::string text = "invalid SMPTE key - 00.01.02.03.04.05.06.07.08.09.0A.0B.0C.0D.0E.0F";
    EXPECT_EQ("startParse\nstartStructure\nfatal 4C4B0001 @0 " + text +
                  "\nendStructure aborted\nendParse\n4C4B0001 " + text,
              read(in, false));
    TestStream within(soundFile().bytes().bytes());
    within.seekg(178);
    EXPECT_NE(std::string::npos, read(within, false).find("\nendParse\ncorrect runIn"));
}

TEST(MXFReader, AllocatesNothingForAnElement) {
    struct Wanting : DullKLVHandler {
        bool startIndividualItem(const KLVKey&, std::uint64_t, std::uint8_t**) override {
            return true;
        }
        bool startUniversalSet(const KLVKey&, std::uint64_t) override { return true; }
        bool startLocalSet(const KLVKey&, std::uint64_t, TagType, LengthType) override {
            return true;
        }
    } wanting;
    KLVBytes group = someItem(100);
    group.klv(someLocalSetKey, KLVBytes({0x12, 0x34, 0, 1, 9})).key(someLabelKey);
    group.klv(someUniversalSetKey, someItem(3)).klv(someFixedPackKey, KLVBytes({1})).fill(5);
    FileBuilder few = soundFile();
    FileBuilder many = soundFile();
    few.partitions[1].body.raw(group);
    for (int i = 0; i < 100; ++i) {
        many.partitions[1].body.raw(group);
    }
    for (const bool seekable : {true, false}) {
        for (KLVHandler* const sections :
             {static_cast<KLVHandler*>(nullptr), static_cast<KLVHandler*>(&wanting)}) {
            EXPECT_EQ(allocationsFor(few.layOut().bytes(), seekable, sections),
                      allocationsFor(many.layOut().bytes(), seekable, sections))
                << (seekable ? "seekable" : "unseekable") << (sections ? ", wanted" : "");
        }
    }
}
