#include "klv/KLVMonitor.h"
#include "mxf/FileRecorders.h"
#include "mxf/MXFSplitter.h"
#include "support/Testing.h"

namespace {

struct Parse : FileRecorders {
    MXFSplitter splitter{structure, metadata, index, essence, false};

    explicit Parse(bool wanted = true) : FileRecorders(wanted) {
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

const std::string begin = "startParse\nstartStructure\n";
const std::string end = "endStructure\nendParse\n";
const std::string aborted = "endStructure aborted\nendParse\n";

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

TEST(MXFSplitter, ReadsBarePartitionsAndRandomIndexes) {
    FileBuilder file = onePartition();
    file.tail = somePack;
    const std::string invalid = " invalid random index value - assertion failure: ";
    const auto index = [](const KLVBytes& value, int form = 0x83) {
        return KLVBytes().klv(randomIndexKey, value, form);
    };
    const struct {
        KLVBytes bytes;
        std::string expected;
    } rows[] = {
        {file.bytes(), "startPartition header 4 this 0 packByteCount 108\nendPartition header\n"
                       "startPartition body 4 this 0 packByteCount 108\nendPartition body\n"},
        {index(randomIndexValue({{0, 0}}, 36)), "randomIndex 0:0\n"},
        {index(randomIndexValue({{0, 0}}, 33), 1), "randomIndex 0:0\n"},
        {index(randomIndexValue({}, 24)), "error 4C4C0006 @24" + invalid + "has entries\n"},
        {index(KLVBytes()), "error 4C4C0006 @20" + invalid + "valid external length\n"},
        {index(randomIndexValue({{0, 0}}, 35)),
         "error 4C4C0006 @36" + invalid + "correct overall length\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(begin + row.expected + end, outline(row.bytes));
    }
    EXPECT_EQ(begin + "fatal 4C4A0001 @0 unsuccessful read()\n" + aborted +
                  "4C4A0001 unsuccessful read()",
              outline(KLVBytes()));
}

TEST(MXFSplitter, FillBehindAPack) {
    // The first belongs to the pack; the second to the first section that isn't empty.
    for (const int filled : {0, 1, 2}) {
        FileBuilder file = onePartition();
        FilePartition& partition = file.partitions[0];
        partition.packFill = true;
        KLVBytes* const sections[] = {&partition.header, &partition.index, &partition.body};
        sections[filled]->fill(0);
        const std::string name = std::string(1, "MIE"[filled]) + ": ";
        const std::string expected =
            begin +
            "startPartition header 4 this 0 packByteCount 128\n"
            "error 4C4C000A @148 adjacent fill items should be concatenated\n" +
            name + "setLocator\n" + name + "startStream accurate @128\n";
        EXPECT_EQ(expected, outline(file.layOut().bytes()).substr(0, expected.size()));
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
    const std::pair<KLVKey, std::string> rows[] = {
        {someItemKey, "individual item - 06.0E.2B.34.01.01.01.01.7E.01.00.00.00.00.00.00"},
        {someLabelKey, "label - 06.0E.2B.34.04.01.01.01.7E.02.00.00.00.00.00.00"},
        {someUniversalSetKey, "universal set - 06.0E.2B.34.02.01.01.01.7E.03.00.00.00.00.00.00"},
        {someLocalSetKey, "local set - 06.0E.2B.34.02.53.01.01.7E.04.00.00.00.00.00.00"},
        {someVariablePackKey,
         "variable length pack - 06.0E.2B.34.02.04.01.01.7E.05.00.00.00.00.00.00"},
        {someFixedPackKey, "fixed length pack - 06.0E.2B.34.02.05.01.01.7E.06.00.00.00.00.00.00"},
        {someWrapperKey, "wrapper - 06.0E.2B.34.03.01.01.01.7E.07.00.00.00.00.00.00"},
        {partitionKey(3, 4), "fixed length pack - 06.0E.2B.34.02.05.01.01.0D.01.02.01.01.03.04.00"},
    };
    for (const auto& [key, text] : rows) {
        const KLVBytes element =
            key == someLabelKey ? KLVBytes().key(key) : KLVBytes().klv(key, KLVBytes());
        const auto fatal = [&, &text = text](std::size_t position) {
            return "fatal 4C4C0001 @" + std::to_string(position) + " unexpected " + text + '\n' +
                   aborted + "4C4C0001 unexpected " + text;
        };
        EXPECT_EQ(begin + "randomIndex 0:0\n" + fatal(36 + element.size()),
                  outline(randomIndexPack({{0, 0}}).raw(element)));
        if (!MXFPartitionKey::isPartitionKey(key)) {
            EXPECT_EQ(begin + fatal(element.size()), outline(element));
        }
    }
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
        {29, 0, "@138 incorrect headerByteCount"},
        {30, 1, "@168 incorrect indexByteCount"},
        {0, 29, "@138 incorrect indexByteCount"},
        // The file ends inside a section.
        {91, 0, "@198 incorrect headerByteCount"},
        {30, huge - 139, "@198 incorrect indexByteCount"},
        // The end of the section lies beyond the numbers: it is before the first element then.
        {most, 0, "@128 incorrect headerByteCount"},
        {0, huge - 108, "@128 incorrect indexByteCount"},
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

TEST(MXFSplitter, RefusesPacksThatAnnounceTooMuch) {
    constexpr std::uint64_t longest = 64 * 1024 * 1024;
    const std::string tooLong = "assertion failure: valid external length\n";
    for (const std::uint64_t length : {longest, longest + 1, ~std::uint64_t{0}}) {
        for (const KLVKey& key : {partitionKey(2, 4), randomIndexKey}) {
            const KLVMonitor::MonitoredLocator locator;
            Parse parse;
            parse.splitter.setLocator(&locator);
            parse.splitter.startStream(true);
            // What is refused isn't read. What ends without its value is refused, too.
            EXPECT_EQ(length <= longest, parse.splitter.startFixedLengthPack(key, length, nullptr));
            const std::string thrown = failureOf([&] { parse.splitter.endFixedLengthPack(key); });
            EXPECT_EQ(key == randomIndexKey
                          ? "error 4C4C0006 invalid random index value - " + tooLong
                          : "fatal 4C4C0102 invalid partition value - " + tooLong,
                      parse.errors.text());
            EXPECT_EQ(key == randomIndexKey, thrown.empty());
        }
    }
}
