#include "klv/GenericKLVReader.h"
#include "klv/KLVMonitor.h"
#include "mxf/MXFSplitter.h"
#include "support/Failures.h"
#include "support/FileBuilder.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

/// A splitter and everything around it, all writing to one recording.
struct Parse {
    Recording recording;
    StructureRecorder structure{recording};
    KLVRecorder metadata{recording, "M"};
    KLVRecorder index{recording, "I"};
    KLVRecorder essence{recording, "E"};
    KeepingErrorHandler errors{recording};
    MXFSplitter splitter{structure, metadata, index, essence, false};

    explicit Parse(bool wanted = true) {
        for (KLVRecorder* section : {&metadata, &index, &essence}) {
            section->setWanted(wanted);
        }
        splitter.setErrorHandler(&errors);
    }

    /// The events of a file, the failure in which they ended last.
    std::string run(const KLVBytes& bytes) {
        recording = Recording();
        TestStream in(bytes.bytes());
        GenericKLVReader reader(splitter);
        reader.setErrorHandler(&errors);
        const std::string failure = failureOf([&] { reader.parse(in); });
        return recording.text() + failure;
    }
};

/// The events, with sections that want nothing.
std::string outline(const KLVBytes& bytes) {
    return Parse(false).run(bytes);
}

/// The reports alone.
std::string reports(const KLVBytes& bytes) {
    Parse parse;
    parse.run(bytes);
    return parse.errors.text();
}

/// A section's events.
std::string section(const std::string& name, int start, std::vector<std::string> events) {
    std::string text = name + ": setLocator\n" + name + ": startStream accurate @";
    text += std::to_string(start) + '\n';
    for (const std::string& event : events) {
        text += std::string(name).append(": ").append(event) += '\n';
    }
    return text;
}

const std::string begin = "startParse\nstartStructure\n";
const std::string beginPartition = begin + "startPartition header 4 this 0 packByteCount 108\n";
const std::string endPartition = "endPartition header\nendStructure\nendParse\n";
const std::string abortPartition = "endPartition header\nendStructure aborted\nendParse\n";

/// A header partition whose sections begin at 108, without random index.
FileBuilder onePartition() {
    FileBuilder file;
    file.partitions.resize(1);
    file.partitions[0].kind = 2;
    file.partitions[0].packFill = false;
    file.hasRandomIndex = false;
    return file;
}

const KLVBytes somePack = KLVBytes().klv(partitionKey(3, 4), partitionValue(MXFPartitionPack()));

} // namespace

TEST(MXFSplitter, PartitionsMayBeBare) {
    // Told at the next pack's start, and at the end.
    FileBuilder file = onePartition();
    file.partitions.push_back(file.partitions[0]);
    file.partitions[1].kind = 4;
    EXPECT_EQ(beginPartition + "endPartition header\n"
                               "startPartition footer 4 this 108 packByteCount 108\n"
                               "endPartition footer\nendStructure\nendParse\n",
              outline(file.layOut().bytes()));
    EXPECT_EQ(begin + "fatal 4C4A0001 @0 unsuccessful read()\nendStructure aborted\nendParse\n"
                      "4C4A0001 unsuccessful read()",
              outline(KLVBytes()));
}

TEST(MXFSplitter, ReadsARandomIndexInAnyForm) {
    const std::string expected = begin + "randomIndex 0:0\nendStructure\nendParse\n";
    EXPECT_EQ(expected, outline(randomIndexPack({{0, 0}})));
    EXPECT_EQ(expected, outline(KLVBytes().klv(randomIndexKey, randomIndexValue({{0, 0}}, 33), 1)));

    const struct {
        KLVBytes value;
        const char* assertion;
    } rows[] = {
        {randomIndexValue({}, 24), "has entries"},
        {KLVBytes(), "valid external length"},
        {randomIndexValue({{0, 0}}, 36).raw({0}), "valid external length"},
        {randomIndexValue({{0, 0}}, 35), "correct overall length"},
    };
    for (const auto& row : rows) {
        const std::string end = std::to_string(20 + row.value.size());
        EXPECT_EQ(begin + "error 4C4C0006 @" + end +
                      " invalid random index value - assertion failure: " + row.assertion +
                      "\nendStructure\nendParse\n",
                  outline(KLVBytes().klv(randomIndexKey, row.value)));
    }
}

TEST(MXFSplitter, FillBehindAPack) {
    // The first belongs to the pack; the second to the first section that isn't empty.
    const char* const names[] = {"M", "I", "E"};
    for (const int filled : {0, 1, 2}) {
        FileBuilder file = onePartition();
        FilePartition& partition = file.partitions[0];
        partition.packFill = true;
        KLVBytes* const sections[] = {&partition.header, &partition.index, &partition.body};
        sections[filled]->fill(0);
        EXPECT_EQ(begin +
                      "startPartition header 4 this 0 packByteCount 128\n"
                      "error 4C4C000A @148 adjacent fill items should be concatenated\n" +
                      section(names[filled], 128,
                              {"form 83 @148", "startIndividualItem fill 0 @148",
                               "endIndividualItem fill @148", "endStream @148"}) +
                      endPartition,
                  outline(file.layOut().bytes()));
    }
}

TEST(MXFSplitter, FillIsAdjacentToTopLevelFillOnly) {
    FileBuilder file = onePartition();
    file.partitions[0].body = someItem(0).fill(0).fill(0).raw(someItem(0)).fill(0);
    EXPECT_EQ("error 4C4C000A @168 adjacent fill items should be concatenated\n",
              reports(file.bytes()));

    KLVBytes& body = file.partitions[0].body = KLVBytes().fill(0);
    body.klv(someUniversalSetKey, KLVBytes().fill(0).fill(0)).fill(0);
    Parse parse;
    parse.run(file.bytes());
    EXPECT_EQ("", parse.errors.text());
    parse.run(KLVBytes().fill(0));
    EXPECT_EQ("fatal 4C4C0001 @20 unexpected individual item - "
              "06.0E.2B.34.01.01.01.01.03.01.02.10.01.00.00.00\n",
              parse.errors.text());
}

TEST(MXFSplitter, RefusesElementsOutsideSections) {
    const struct {
        KLVBytes element;
        const char* text;
        const char* key;
    } rows[] = {
        {someItem(0), "individual item", "01.01.01.01.7E.01"},
        {KLVBytes().key(someLabelKey), "label", "04.01.01.01.7E.02"},
        {KLVBytes().klv(someUniversalSetKey, KLVBytes()), "universal set", "02.01.01.01.7E.03"},
        {KLVBytes().klv(someLocalSetKey, KLVBytes()), "local set", "02.53.01.01.7E.04"},
        {KLVBytes().klv(someVariablePackKey, KLVBytes()), "variable length pack",
         "02.04.01.01.7E.05"},
        {KLVBytes().klv(someFixedPackKey, KLVBytes()), "fixed length pack", "02.05.01.01.7E.06"},
        {KLVBytes().klv(someWrapperKey, KLVBytes()), "wrapper", "03.01.01.01.7E.07"},
    };
    for (const auto& row : rows) {
        const auto fatal = [&](std::size_t offset) {
            const std::size_t position = offset + std::min<std::size_t>(row.element.size(), 20);
            const std::string report = std::string("unexpected ") + row.text + " - 06.0E.2B.34." +
                                       row.key + ".00.00.00.00.00.00";
            return "fatal 4C4C0001 @" + std::to_string(position) + ' ' + report +
                   "\nendStructure aborted\nendParse\n4C4C0001 " + report;
        };
        EXPECT_EQ(begin + fatal(0), outline(row.element));
        EXPECT_EQ(begin + "randomIndex 0:0\n" + fatal(36),
                  outline(randomIndexPack({{0, 0}}).raw(row.element)));
    }
    const std::string pack = "fatal 4C4C0001 @56 unexpected fixed length pack - "
                             "06.0E.2B.34.02.05.01.01.0D.01.02.01.01.";
    EXPECT_EQ(pack + "03.04.00\n", reports(randomIndexPack({{0, 0}}).raw(somePack)));
    EXPECT_EQ(pack + "11.01.00\n",
              reports(randomIndexPack({{0, 0}}).raw(randomIndexPack({{0, 0}}))));
}

TEST(MXFSplitter, RefusesAPackThatIsNone) {
    const KLVBytes value = partitionValue(MXFPartitionPack()).raw({0});
    const std::string text = " invalid partition value - assertion failure: valid external length";
    EXPECT_EQ(begin + "fatal 4C4C0102 @109" + text + "\nendStructure aborted\nendParse\n4C4C0102" +
                  text,
              outline(KLVBytes().klv(partitionKey(2, 4), value).raw(soundFile().bytes())));
}

// Three items of 30 bytes each lie behind the pack's end at 108.
TEST(MXFSplitter, HoldsSectionsToTheirByteCounts) {
    constexpr std::uint64_t huge = std::uint64_t{1} << 63;
    constexpr std::uint64_t most = ~std::uint64_t{0};
    const struct {
        std::uint64_t headerByteCount;
        std::uint64_t indexByteCount;
        const char* report;
    } rows[] = {
        // An element crosses the section's end: seen at its own end.
        {1, 0, "@138 incorrect headerByteCount"},
        {29, 0, "@138 incorrect headerByteCount"},
        {31, 0, "@168 incorrect headerByteCount"},
        {30, 1, "@168 incorrect indexByteCount"},
        {0, 1, "@138 incorrect indexByteCount"},
        // The file ends inside a section.
        {91, 0, "@198 incorrect headerByteCount"},
        {30, 61, "@198 incorrect indexByteCount"},
        {huge - 109, 0, "@198 incorrect headerByteCount"},
        {30, huge - 139, "@198 incorrect indexByteCount"},
        // The end of the section lies beyond the numbers: it is before the first element then.
        {huge - 108, 0, "@128 incorrect headerByteCount"},
        {most, 0, "@128 incorrect headerByteCount"},
        {most - 107, 0, "@128 incorrect headerByteCount"},
        {0, huge - 108, "@128 incorrect indexByteCount"},
        {30, huge - 138, "@138 incorrect indexByteCount"},
        {30, most, "@138 incorrect indexByteCount"},
    };
    for (const auto& row : rows) {
        FileBuilder file = onePartition();
        file.partitions[0].body = someItem(10).raw(someItem(10)).raw(someItem(10));
        file.partitions[0].pack.headerByteCount = row.headerByteCount;
        file.partitions[0].pack.indexByteCount = row.indexByteCount;
        EXPECT_EQ("fatal 4C4C0101 " + std::string(row.report) + '\n', reports(file.bytes()))
            << row.headerByteCount << ' ' << row.indexByteCount;
    }
}

TEST(MXFSplitter, APackInsideACountedSectionIsNoBoundary) {
    FileBuilder file = onePartition();
    file.partitions[0].header = someItem(0).raw(somePack).raw(randomIndexPack({{0, 0}}));
    file.layOut();
    std::vector<std::string> events = {
        "form 83 @128", "startIndividualItem 7E01 0 @128", "endIndividualItem 7E01 @128",
        "startFixedLengthPack partition 88 @148", "endFixedLengthPack partition @236"};
    const std::string first = beginPartition + section("M", 108, events);
    EXPECT_EQ(first +
                  "M: startFixedLengthPack random-index 16 @256\n"
                  "M: endFixedLengthPack random-index @272\nM: endStream @272\n" +
                  endPartition,
              outline(file.bytes()));

    // A count that reaches into the pack, and one that reaches beyond the end of the file.
    const std::string fatal = "fatal 4C4C0101 @236 incorrect headerByteCount\n"
                              "M: endStream aborted @236\n" +
                              abortPartition + "4C4C0101 incorrect headerByteCount";
    file.partitions[0].pack.headerByteCount = 21;
    EXPECT_EQ(first + fatal, outline(file.bytes()));
    file.partitions[0].header = someItem(0).raw(somePack);
    file.partitions[0].pack.headerByteCount = 129;
    EXPECT_EQ(first + fatal, outline(file.bytes()));
}

// What a section's handler asked to see of a universal set is its own, packs among it.
TEST(MXFSplitter, LeavesWantedUniversalSetsToTheirSection) {
    const KLVBytes inner = KLVBytes().klv(someUniversalSetKey, KLVBytes(somePack).raw(someItem(0)));
    FileBuilder file = onePartition();
    file.partitions[0].header.klv(someUniversalSetKey, KLVBytes(inner).raw(someItem(1)));
    file.partitions[0].body.klv(someUniversalSetKey, somePack);
    file.layOut().tail.klv(partitionKey(4, 4), partitionValue(MXFPartitionPack()));
    const std::string footer = "endPartition header\n"
                               "startPartition footer 4 this 0 packByteCount 108\n"
                               "endPartition footer\nendStructure\nendParse\n";
    EXPECT_EQ(
        beginPartition +
            section("M", 108,
                    {"form 83 @128", "startUniversalSet 7E03 169 @128",
                     "startUniversalSet 7E03 128 @148", "startFixedLengthPack partition 88 @168",
                     "value 88 00 01 00 02 @256", "endFixedLengthPack partition @256",
                     "startIndividualItem 7E01 0 @276", "endIndividualItem 7E01 @276",
                     "endUniversalSet 7E03 @276", "startIndividualItem 7E01 1 @296",
                     "value 1 00 @297", "endIndividualItem 7E01 @297", "endUniversalSet 7E03 @297",
                     "endStream @297"}) +
            section("E", 297,
                    {"form 83 @317", "startUniversalSet 7E03 108 @317",
                     "startFixedLengthPack partition 88 @337", "value 88 00 01 00 02 @425",
                     "endFixedLengthPack partition @425", "endUniversalSet 7E03 @425",
                     "endStream @425"}) +
            footer,
        Parse().run(file.bytes()));
    const std::string unwanted = outline(file.bytes());
    EXPECT_EQ("E: endStream @425\n" + footer, unwanted.substr(unwanted.find("E: endStream")));
}

TEST(MXFSplitter, TellsSectionsTheFormInForce) {
    FileBuilder file = onePartition();
    file.partitions[0].header.klv(someItemKey, KLVBytes({1}), 1);
    file.partitions[0].header.klv(someItemKey, KLVBytes({1}), 0x84);
    file.partitions[0].index.key(someLabelKey);
    EXPECT_EQ(beginPartition +
                  section("M", 108,
                          {"form 01 @125", "startIndividualItem 7E01 1 @125",
                           "endIndividualItem 7E01 @126", "form 84 @126",
                           "startIndividualItem 7E01 1 @147", "endIndividualItem 7E01 @148",
                           "endStream @148"}) +
                  section("I", 148,
                          {"form 84 @164", "startLabel 7E02 @164", "endLabel 7E02 @164",
                           "endStream @164"}) +
                  endPartition,
              outline(file.layOut().bytes()));
}

TEST(MXFSplitter, EndsEverythingWhenItIsStopped) {
    Parse parse(false);
    bool stop = false;
    // In place of the seventh line, the end of the first element.
    parse.recording.interfere(6, [&] { stop = true; });
    TestStream in(soundFile().bytes().bytes());
    GenericKLVReader(parse.splitter).parse(in, std::streampos(std::streamoff(-1)), stop);
    const std::string text = parse.recording.text();
    EXPECT_EQ("M: endLocalSet 7E04 @158\nM: endStream aborted @158\n"
              "endPartition header\nendStructure aborted\n",
              text.substr(text.find("M: endLocalSet")));
}

TEST(MXFSplitter, CanBeUsedAgainAfterAnyEnd) {
    const std::string expected = Parse().run(soundFile().bytes());
    FileBuilder file = soundFile();
    file.partitions[0].pack.headerByteCount = 1000000;
    const KLVBytes unended = file.bytes();
    file.partitions[0].pack.headerByteCount = 1;
    const KLVBytes crossed = file.bytes();
    const KLVBytes cutInSet = onePartition().bytes().key(someUniversalSetKey).length(100);
    const KLVBytes cutInPack = KLVBytes().key(partitionKey(2, 4)).length(100);
    for (const KLVBytes& bytes : {unended, crossed, cutInSet, cutInPack, someItem(0)}) {
        Parse parse;
        parse.run(bytes);
        EXPECT_FALSE(parse.errors.text().empty());
        EXPECT_EQ(expected, parse.run(soundFile().bytes()));
    }
}

TEST(MXFSplitter, RefusesEventsOutOfOrder) {
    using Splitter = MXFSplitter;
    const std::uint8_t byte = 0;
    const struct {
        const char* check;
        std::function<void(Splitter&)> events;
    } rows[] = {
        {"has accurate lengths", [](Splitter& to) { to.startStream(false); }},
        {"has locator", [](Splitter& to) { to.setLocator(nullptr), to.startStream(true); }},
        {"before start", [](Splitter& to) { to.startStream(true), to.startStream(true); }},
        {"before start", [](Splitter& to) { to.startStream(true), to.runIn(1); }},
        {"expected individual item", [](Splitter& to) { to.endIndividualItem(someItemKey); }},
        {"expected label", [](Splitter& to) { to.endLabel(someLabelKey); }},
        {"expected universal set", [](Splitter& to) { to.endUniversalSet(someItemKey); }},
        {"expected local set", [](Splitter& to) { to.endLocalSet(someLocalSetKey); }},
        {"expected local item", [](Splitter& to) { to.startLocalItem(1, 0, nullptr); }},
        {"expected local item", [](Splitter& to) { to.endLocalItem(1); }},
        {"expected fixed length pack", [](Splitter& to) { to.endFixedLengthPack(someItemKey); }},
        {"expected variable length pack",
         [](Splitter& to) { to.endVariableLengthPack(someItemKey); }},
        {"expected variable length item",
         [](Splitter& to) { to.startVariableLengthItem(0, nullptr); }},
        {"expected variable length item", [](Splitter& to) { to.endVariableLengthItem(); }},
        {"expected wrapper", [](Splitter& to) { to.endWrapper(someWrapperKey); }},
        {"expected value", [&](Splitter& to) { to.value(&byte, 1); }},
        {"expected fixed length pack",
         [](Splitter& to) {
             to.startStream(true);
             to.startFixedLengthPack(partitionKey(2, 4), 88, nullptr);
             to.endFixedLengthPack(randomIndexKey);
         }},
    };
    for (const auto& row : rows) {
        KLVMonitor::MonitoredLocator locator;
        Parse parse;
        parse.splitter.setLocator(&locator);
        EXPECT_EQ(row.check, failureOf([&] { row.events(parse.splitter); }));
    }
}

TEST(MXFSplitter, RefusesPacksThatAnnounceTooMuch) {
    constexpr std::uint64_t longest = 64 * 1024 * 1024;
    const std::string tooLong = "assertion failure: valid external length";
    for (const std::uint64_t length : {longest, longest + 1, ~std::uint64_t{0}}) {
        for (const KLVKey& key : {partitionKey(2, 4), randomIndexKey}) {
            KLVMonitor::MonitoredLocator locator;
            Parse parse;
            parse.splitter.setLocator(&locator);
            parse.splitter.startStream(true);
            // What is refused isn't read. What ends without its value is refused, too.
            EXPECT_EQ(length <= longest, parse.splitter.startFixedLengthPack(key, length, nullptr));
            const std::string thrown = failureOf([&] { parse.splitter.endFixedLengthPack(key); });
            EXPECT_EQ(key == randomIndexKey
                          ? "error 4C4C0006 invalid random index value - " + tooLong + '\n'
                          : "fatal 4C4C0102 invalid partition value - " + tooLong + '\n',
                      parse.errors.text());
            EXPECT_EQ(key == randomIndexKey, thrown.empty());
        }
    }
}
