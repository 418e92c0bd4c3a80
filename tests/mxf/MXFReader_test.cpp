#include "mxf/FileRecorders.h"
#include "support/Testing.h"

namespace {

/// A file with one fault, behind a run-in that ends in a false start. A pack within a counted
/// section is no boundary, nor is one in a universal set.
KLVBytes fileWithRunIn() {
    FileBuilder file = soundFile();
    const KLVBytes pack = KLVBytes().klv(partitionKey(3, 4), partitionValue(MXFPartitionPack()));
    file.runIn.counting(300).raw({0x06, 0x0E, 0x2B, 0x34, 2, 5});
    KLVBytes& header = file.partitions[0].header;
    header.klv(someItemKey, KLVBytes({9}), 1).raw(pack).raw(randomIndexPack({{0, 0}}));
    header.klv(someUniversalSetKey, someItem(1));
    file.partitions[1].index.key(someLabelKey);
    file.partitions[1].body.klv(someUniversalSetKey, pack);
    file.layOut().partitions[1].pack.thisPartition = 5;
    return file.bytes();
}

/// What is told of the structure alone.
std::string withoutSections(const std::string& events) {
    return std::regex_replace(events, std::regex("[MIE]: [^\n]*\n"), "");
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
        "M: startIndividualItem fill 0 @484\nM: endIndividualItem fill @484\nM: form 01 @484\n"
        "M: startIndividualItem 7E01 1 @501\nM: value 1 09 @502\nM: endIndividualItem 7E01 @502\n"
        "M: form 83 @502\nM: startFixedLengthPack partition 88 @522\n"
        "M: value 88 00 01 00 02 @610\nM: endFixedLengthPack partition @610\n"
        "M: startFixedLengthPack random-index 16 @630\n"
        "M: value 16 00 00 00 00 @646\nM: endFixedLengthPack random-index @646\n"
        "M: startUniversalSet 7E03 21 @666\nM: startIndividualItem 7E01 1 @686\n"
        "M: value 1 00 @687\nM: endIndividualItem 7E01 @687\nM: endUniversalSet 7E03 @687\n"
        "M: endStream @687\nendPartition header\n"
        "warning 4C4C0104 @815 incorrect thisPartition\n"
        "startPartition body 4 this 5 packByteCount 128\n"
        "I: setLocator\nI: startStream accurate @815\nI: form 83 @835\n"
        "I: startFixedLengthPack 7E06 10 @835\nI: value 10 00 01 02 03 @845\n"
        "I: endFixedLengthPack 7E06 @845\nI: startLabel 7E02 @861\nI: endLabel 7E02 @861\n"
        "I: endStream @861\nE: setLocator\nE: startStream accurate @861\nE: form 83 @881\n"
        "E: startIndividualItem 7E01 10 @881\nE: value 10 00 01 02 03 @891\n"
        "E: endIndividualItem 7E01 @891\nE: startIndividualItem fill 0 @911\n"
        "E: endIndividualItem fill @911\nE: startUniversalSet 7E03 108 @931\n"
        "E: startFixedLengthPack partition 88 @951\nE: value 88 00 01 00 02 @1039\n"
        "E: endFixedLengthPack partition @1039\nE: endUniversalSet 7E03 @1039\n"
        "E: endStream @1039\nendPartition body\n"
        "startPartition footer 4 this 733 packByteCount 128\nendPartition footer\n"
        "randomIndex 0:0 1:381 0:733\nendStructure\nendParse\n";
    for (const bool seekable : {true, false}) {
        for (const std::size_t readSize : {1U, 2U, 7U, 11U, 4096U}) {
            const TestStreamOptions options = {seekable, readSize};
            TestStream in(fileWithRunIn().bytes(), options);
            const std::streambuf* const buffer = in.rdbuf();
            EXPECT_EQ(expected, FileRecorders().read(in)) << seekable << ' ' << readSize;
            EXPECT_EQ(buffer, in.rdbuf());
            EXPECT_EQ(std::ios_base::eofbit, in.rdstate());
            TestStream again(fileWithRunIn().bytes(), options);
            EXPECT_EQ(withoutSections(expected), withoutSections(FileRecorders(false).read(again)));
        }
    }
}

TEST(MXFReader, SkipsNothingUnlessAsked) {
    TestStream in(fileWithRunIn().bytes());
    const std::string text = "invalid SMPTE key - 00.01.02.03.04.05.06.07.08.09.0A.0B.0C.0D.0E.0F";
    EXPECT_EQ("startParse\nstartStructure\nfatal 4C4B0001 @0 " + text +
                  "\nendStructure aborted\nendParse\n4C4B0001 " + text,
              FileRecorders().read(in, false));
    TestStream within(soundFile().bytes().bytes());
    within.seekg(178);
    EXPECT_EQ("startParse\nendParse\ncorrect runIn", FileRecorders().read(within, false));
}

TEST(MXFReader, EndsEveryoneWhenTheEndOfTheFileFails) {
    const auto refuse = [] { throw std::runtime_error("refused"); };
    KLVBytes footerAlone;
    footerAlone.klv(partitionKey(4, 4), partitionValue(MXFPartitionPack()));
    FileRecorders refused;
    refused.recording.interfere(2, refuse); // the report
    TestStream footer(footerAlone.bytes());
    EXPECT_EQ(refused.read(footer), "startParse\nstartStructure\nendStructure aborted\nendParse\n"
                                    "refused");

    MXFPartitionPack pack;
    pack.headerByteCount = 500;
    pack.footerPartition = 1000;
    KLVBytes headerCut;
    headerCut.klv(partitionKey(2, 4), partitionValue(pack)).fill(0).raw(someItem(1));
    FileRecorders unended(false);
    unended.recording.interfere(9, refuse); // the section's end
    TestStream header(headerCut.bytes());
    const std::string events = unended.read(header);
    EXPECT_EQ(events.substr(events.find("fatal")),
              "fatal 4C4C0101 @149 incorrect headerByteCount\nendPartition header\n"
              "endStructure aborted\nendParse\n4C4C0101 incorrect headerByteCount")
        << events;
}
