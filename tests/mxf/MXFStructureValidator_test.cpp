#include "mxf/FileRecorders.h"
#include "mxf/MXFStructureValidator.h"
#include "support/Testing.h"

namespace {

/// What is reported of a file, without the positions.
std::string reports(const Bytes& file) {
    FileRecorders recorders(false);
    TestStream in(file);
    recorders.read(in);
    return std::regex_replace(recorders.errors.text(), std::regex(" @[0-9]+"), "");
}

/// Where a number lies in the value of a pack.
struct Field {
    int offset;
    int octets;
};

constexpr Field kind = {-7, 1}, major = {0, 2}, minor = {2, 2}, kagSize = {4, 4},
                thisPartition = {8, 8}, previous = {16, 8}, footer = {24, 8}, indexSID = {48, 4},
                bodyOffset = {52, 8}, bodySID = {60, 4}, tableSID = {12, 4}, tableOffset = {16, 8};

const KLVKey op1a = smpteKey({4, 1, 1, 1, 0x0D, 1, 2, 1, 1, 1, 9});

/// What is reported of events sent as letters, then the check that one breaks and the events behind
/// that. r is a run-in of no byte, R of one; s startStructure, e and a endStructure, a aborted; x
/// randomIndex; H B F start and h b f end a header, body or footer partition, K starts one with
/// another key; l and L set a locator, at 0 and at 1. All packs lie at 0 and are empty, but for the
/// header's footerPartition of 1.
std::string answer(const std::string& events) {
    const FixedLocator atStart(0);
    const FixedLocator behindRunIn(1);
    DullMXFStructureHandler next;
    MXFStructureValidator to(next);
    KeepingErrorHandler errors;
    to.setErrorHandler(&errors);
    const MXFRandomIndex table = {{0, 0}};
    MXFPartitionPack pack;
    const auto start = [&](int ofKind, std::uint64_t footerPartition) {
        pack.footerPartition = footerPartition;
        to.startPartition(partitionKey(ofKind, 4), pack, 0);
    };
    const std::map<char, std::function<void()>> send = {
        {'l', [&] { to.setLocator(&atStart); }},
        {'L', [&] { to.setLocator(&behindRunIn); }},
        {'r', [&] { to.runIn(0); }},
        {'R', [&] { to.runIn(1); }},
        {'s', [&] { to.startStructure(); }},
        {'e', [&] { to.endStructure(false); }},
        {'a', [&] { to.endStructure(true); }},
        {'x', [&] { to.randomIndex(table); }},
        {'K', [&] { to.startPartition(randomIndexKey, pack, 0); }},
        {'H', [&] { start(2, 1); }},
        {'B', [&] { start(3, 0); }},
        {'F', [&] { start(4, 0); }},
        {'h', [&] { to.endPartition(partitionKey(2, 4)); }},
        {'b', [&] { to.endPartition(partitionKey(3, 4)); }},
        {'f', [&] { to.endPartition(partitionKey(4, 4)); }},
    };
    std::string failure;
    for (std::size_t i = 0; i < events.size() && failure.empty(); ++i) {
        failure = failureOf(send.at(events[i]));
        failure += failure.empty() ? "" : events.substr(i + 1);
    }
    return errors.text() + failure;
}

const std::string noWay = "error 4C4C0003 missing random index or non-zero footerPartition in the "
                          "header partition pack\n";
const std::string missingHeader = "error 4C4C0103 missing header partition\n";

} // namespace

TEST(MXFStructureValidator, ReportsWhatIsNotTrue) {
    struct Change {
        std::size_t pack;
        Field field;
        std::uint64_t value;
    };
    const std::string range = " (implemented 1.2-1.3)\n";
    const std::string later = "warning 4C4C0202 later version - 1.4" + range;
    const std::string badTable = "warning 4C4C0006 incorrect random index value\n";
    const std::string badHeader = "warning 4C4C0004 headerByteCount is not a multiple of kagSize\n";
    const std::string badIndex = "warning 4C4C0005 indexByteCount is not a multiple of kagSize\n";
    const std::string badThis = "warning 4C4C0104 incorrect thisPartition\n";
    const std::string badPrevious = "warning 4C4C0105 incorrect previousPartition\n";
    const std::string badFooter = "warning 4C4C0106 incorrect footerPartition\n";
    const std::string formerFooter = "warning 4C4C0106 incorrect previous footerPartition\n";
    const std::string otherFooter = "warning 4C4C0106 inconsistent footerPartition\n";
    const std::string badIndexSID = "warning 4C4C0107 inconsistent indexSID and indexByteCount\n";
    const std::string badBodySID = "warning 4C4C0108 inconsistent bodySID and bodyOffset\n";
    const struct {
        std::vector<Change> changes;
        std::string reports;
    } rows[] = {
        {{}, ""},
        {{{0, kind, 3}}, missingHeader},
        {{{1, kind, 2}}, "error 4C4C0103 unexpected header partition\n"},
        {{{1, minor, 3}}, ""},
        {{{1, minor, 4}}, later},
        {{{1, minor, 255}}, "warning 4C4C0202 later version - 1.255" + range},
        {{{1, minor, 256}}, "error 4C4C0201 invalid version - 1.256" + range},
        {{{1, minor, 1}}, "error 4C4C0202 earlier version - 1.1" + range},
        {{{1, major, 0}}, "error 4C4C0201 incompatible version - 0.2" + range},
        {{{1, major, 255}}, "error 4C4C0201 incompatible version - 255.2" + range},
        {{{1, major, 256}}, "error 4C4C0201 invalid version - 256.2" + range},
        {{{2, bodySID, 1}, {3, {24, 4}, 1}}, "warning 4C4C0108 non-zero bodySID in footer\n"},
        {{{0, kagSize, 49}}, badHeader},
        {{{0, kagSize, 50}}, ""},
        {{{1, kagSize, 31}}, badIndex},
        {{{1, kagSize, 10}}, ""},
        {{{1, indexSID, 0}}, badIndexSID},
        {{{0, indexSID, 1}}, badIndexSID},
        {{{0, bodyOffset, 1}}, badBodySID},
        {{{1, bodyOffset, 1}}, ""},
        {{{0, thisPartition, 1}}, badThis},
        {{{2, thisPartition, 385}}, badThis},
        {{{0, previous, 1}}, badPrevious},
        {{{2, previous, 0}}, badPrevious},
        {{{3, tableSID, 2}}, badTable},
        {{{3, tableOffset, 177}}, badTable},
        {{{0, footer, 385}}, otherFooter},
        {{{2, footer, 0}}, badFooter},
        {{{0, footer, 0}, {1, footer, 0}}, ""},
        {{{0, footer, 385}, {1, footer, 385}}, formerFooter},
        // The later of two values wins.
        {{{1, footer, 385}}, otherFooter + formerFooter},
        {{{0, minor, 4},
          {0, thisPartition, 1},
          {0, previous, 1},
          {0, kagSize, 49},
          {0, indexSID, 1},
          {0, bodyOffset, 1}},
         later + badThis + badPrevious + badHeader + badIndexSID + badBodySID}};
    const int values[] = {20, 198, 406, 534}; // of the packs of header, body, footer, random index
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        Bytes file = soundFile().bytes().bytes();
        for (const Change& change : rows[i].changes) {
            const KLVBytes number = KLVBytes().number(change.value, change.field.octets);
            std::copy(number.bytes().begin(), number.bytes().end(),
                      file.begin() + values[change.pack] + change.field.offset);
        }
        EXPECT_EQ(rows[i].reports, reports(file)) << "row " << i;
    }
}

TEST(MXFStructureValidator, KnowsTheGeneralizedPatterns) {
    const struct {
        std::size_t at;
        int byte;
        bool generalized;
    } rows[] = {
        {7, 0x0D, true}, {12, 3, true},  {13, 3, true},  {14, 0, true},     {15, 1, true},
        {12, 0, false},  {12, 4, false}, {13, 0, false}, {13, 4, false},    {11, 2, false},
        {10, 1, false},  {6, 2, false},  {4, 1, false},  {12, 0x10, false}, {0, 0, false},
    };
    for (const auto& row : rows) {
        FileBuilder file = soundFile();
        file.runIn.counting(1);
        file.partitions[0].pack.operationalPattern = op1a;
        file.partitions[0].pack.operationalPattern[row.at] = static_cast<std::uint8_t>(row.byte);
        EXPECT_EQ(row.generalized ? "error 4C4C0002 generalized operational pattern with run-in\n"
                                  : "",
                  reports(file.bytes().bytes()))
            << row.at << ' ' << row.byte;
        file.runIn = KLVBytes();
        EXPECT_EQ("", reports(file.bytes().bytes()));
    }
}

TEST(MXFStructureValidator, FollowsFileAfterFileAndRefusesAWrongOrderOfEvents) {
    const std::string partition = "error 4C4C0003 unexpected partition\n";
    const std::string table = "error 4C4C0003 unexpected random index\n";
    const struct {
        std::vector<std::string> before;
        std::string last;
        std::string answer;
    } rows[] = {
        {{"", "r", "sH", "sHhF"}, "HBF", "before partition"},
        {{"", "r", "sH", "sHhF"}, "x", "before random index"},
        {{"r", "s", "sH", "sHh", "sHhx"}, "r", "before run-in"},
        {{"s", "sH", "sHh", "sHhFf", "sHhx"}, "s", "before start"},
        {{"", "s", "sHh", "sHhx", "sHhFf"}, "hbf", "in partition"},
        {{"sHhF"}, "hb", "is footer partition"},
        {{"sH", "sHhB"}, "f", "is header or body partition"},
        {{"s"}, "K", "is partition"},
        {{"R", "L", "lR"}, "s", "correct runIn"},
        // No positions without a locator, which is good for one file; nothing remains of that.
        {{"rsHhBbFfx", "lsHhxelsHhx", "lsHhxesHhBbFfx"}, "e", ""},
        {{"sxHhxFfxBbxx"}, "e", table + partition + partition + partition + table},
        {{"sHhFfBb"}, "e", "error 4C4C0103 unexpected partition\n"},
        {{"sBb"}, "a", missingHeader},
        {{"", "LRsHhes"}, "e", noWay},
        {{"sHhesBb", "lsHhelsFf"}, "e", missingHeader + noWay},
        {{"sBbxesBb"}, "e", missingHeader + missingHeader + noWay}};
    for (const auto& row : rows) {
        for (const std::string& before : row.before) {
            for (const char last : row.last) {
                EXPECT_EQ(row.answer, answer(before + last)) << before << last;
            }
        }
    }
}
