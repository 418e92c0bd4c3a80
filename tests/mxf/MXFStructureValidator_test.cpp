#include "klv/KLVMonitor.h"
#include "mxf/MXFStructureValidator.h"
#include "support/Failures.h"
#include "support/FileBuilder.h"
#include "support/Recorder.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr std::uint64_t packSize = 128;

/// A position that a test sets.
class SetLocator : public Locator {
public:
    const std::streampos& getPosition() const override { return position_; }
    void set(std::uint64_t position) {
        position_ = std::streampos(static_cast<std::streamoff>(position));
    }

private:
    std::streampos position_;
};

/// The structure events of a file, which at first is sound.
struct Structure {
    std::uint64_t runIn = 0;
    FileBuilder file = soundFile();
    MXFRandomIndex table = file.randomIndex();
    bool hasTable = true;
    bool aborted = false;

    MXFPartitionPack& pack(std::size_t i) { return file.partitions[i].pack; }

    void send(MXFStructureValidator& to, SetLocator& locator) const {
        locator.set(runIn);
        if (runIn != 0) {
            to.runIn(runIn);
        }
        to.startStructure();
        const MXFRandomIndex offsets = file.randomIndex();
        for (std::size_t i = 0; i < file.partitions.size(); ++i) {
            const FilePartition& partition = file.partitions[i];
            const KLVKey key = partitionKey(partition.kind, partition.status);
            locator.set(runIn + offsets[i].byteOffset + packSize);
            to.startPartition(key, partition.pack, packSize);
            to.endPartition(key);
        }
        if (hasTable) {
            to.randomIndex(table);
        }
        to.endStructure(aborted);
    }
};

/// What a validator reports of a structure; it passes every event on.
std::string reports(const Structure& structure, bool withLocator = true) {
    DullMXFStructureHandler next;
    MXFStructureValidator validator(next);
    KeepingErrorHandler errors;
    SetLocator locator;
    validator.setErrorHandler(&errors);
    if (withLocator) {
        validator.setLocator(&locator);
    }
    structure.send(validator, locator);
    return errors.text();
}

const KLVKey op1a = smpteKey({4, 1, 1, 1, 0x0D, 1, 2, 1, 1, 1, 9});

} // namespace

TEST(MXFStructureValidator, FindsNothingWrongWithASoundFile) {
    EXPECT_EQ("", reports(Structure()));
    Structure structure;
    structure.runIn = 65535;
    EXPECT_EQ("", reports(structure));
}

// Pack 0 is a header at 0, 1 a body at 178, 2 the footer at 386.
TEST(MXFStructureValidator, ReportsWhatIsNotTrue) {
    using Change = std::function<void(Structure&)>;
    const struct {
        Change change;
        const char* reports;
    } rows[] = {
        // The order of partitions.
        {[](Structure& s) { s.file.partitions[0].kind = 3; },
         "error 4C4C0103 missing header partition\n"},
        {[](Structure& s) { s.file.partitions[1].kind = 2; },
         "error 4C4C0103 unexpected header partition\n"},
        {[](Structure& s) {
             std::swap(s.file.partitions[1], s.file.partitions[2]);
             s.file.layOut();
             s.table = s.file.randomIndex();
         },
         "error 4C4C0103 unexpected partition\n"},
        {[](Structure& s) { s.pack(0).footerPartition = 0, s.hasTable = false; },
         "error 4C4C0003 missing random index or non-zero footerPartition in the header partition "
         "pack\n"},
        {[](Structure& s) {
             s.pack(0).footerPartition = 0, s.hasTable = false;
             s.aborted = true;
         },
         ""},
        {[](Structure& s) { s.hasTable = false; }, ""},
        {[](Structure& s) { s.pack(0).footerPartition = 0; }, ""},

        // Run-in.
        {[](Structure& s) { s.runIn = 1, s.pack(1).operationalPattern = op1a; },
         "error 4C4C0002 generalized operational pattern with run-in\n"},
        {[](Structure& s) { s.pack(1).operationalPattern = op1a; }, ""},

        // The pack's own fields.
        {[](Structure& s) { s.pack(0).kagSize = 49; },
         "warning 4C4C0004 headerByteCount is not a multiple of kagSize\n"},
        {[](Structure& s) { s.pack(0).kagSize = 50; }, ""},
        {[](Structure& s) { s.pack(1).kagSize = 31; },
         "warning 4C4C0005 indexByteCount is not a multiple of kagSize\n"},
        {[](Structure& s) { s.pack(1).kagSize = 10; }, ""},
        {[](Structure& s) { s.pack(1).indexSID = 0; },
         "warning 4C4C0107 inconsistent indexSID and indexByteCount\n"},
        {[](Structure& s) { s.pack(0).indexSID = 1; },
         "warning 4C4C0107 inconsistent indexSID and indexByteCount\n"},
        {[](Structure& s) { s.pack(0).bodyOffset = 1; },
         "warning 4C4C0108 inconsistent bodySID and bodyOffset\n"},
        {[](Structure& s) { s.pack(1).bodyOffset = 1; }, ""},
        {[](Structure& s) { s.pack(2).bodySID = 1, s.table[2].bodySID = 1; },
         "warning 4C4C0108 non-zero bodySID in footer\n"},

        // Positions.
        {[](Structure& s) { s.pack(0).thisPartition = 1; },
         "warning 4C4C0104 incorrect thisPartition\n"},
        {[](Structure& s) { s.pack(2).thisPartition = 385; },
         "warning 4C4C0104 incorrect thisPartition\n"},
        {[](Structure& s) { s.pack(0).previousPartition = 1; },
         "warning 4C4C0105 incorrect previousPartition\n"},
        {[](Structure& s) { s.pack(2).previousPartition = 0; },
         "warning 4C4C0105 incorrect previousPartition\n"},
        {[](Structure& s) { s.pack(2).footerPartition = 0; },
         "warning 4C4C0106 incorrect footerPartition\n"},
        {[](Structure& s) { s.pack(0).footerPartition = s.pack(1).footerPartition = 385; },
         "warning 4C4C0106 incorrect previous footerPartition\n"},
        // The later of two values wins.
        {[](Structure& s) { s.pack(0).footerPartition = 385; },
         "warning 4C4C0106 inconsistent footerPartition\n"},
        {[](Structure& s) { s.pack(1).footerPartition = 385; },
         "warning 4C4C0106 inconsistent footerPartition\n"
         "warning 4C4C0106 incorrect previous footerPartition\n"},
        {[](Structure& s) { s.pack(1).footerPartition = 0; }, ""},

        // The random index.
        {[](Structure& s) { s.table[1].bodySID = 2; },
         "warning 4C4C0006 incorrect random index value\n"},
        {[](Structure& s) { s.table[1].byteOffset = 177; },
         "warning 4C4C0006 incorrect random index value\n"},
        {[](Structure& s) { s.table.pop_back(); },
         "warning 4C4C0006 incorrect random index value\n"},
        {[](Structure& s) {
             s.table.push_back({0, 514});
         },
         "warning 4C4C0006 incorrect random index value\n"},

        // All that one pack can draw, in order.
        {[](Structure& s) {
             s.runIn = 7;
             s.file.partitions[0].kind = 4;
             MXFPartitionPack& pack = s.pack(0);
             pack.operationalPattern = op1a;
             pack.minorVersion = 4;
             pack.thisPartition = pack.previousPartition = pack.footerPartition = 1;
             pack.kagSize = 3;
             pack.indexByteCount = 1;
             pack.bodyOffset = 1;
             s.aborted = true;
             s.hasTable = false;
             s.file.partitions.resize(1);
         },
         "error 4C4C0103 missing header partition\n"
         "error 4C4C0002 generalized operational pattern with run-in\n"
         "warning 4C4C0202 later version - 1.4 (implemented 1.2-1.3)\n"
         "warning 4C4C0104 incorrect thisPartition\n"
         "warning 4C4C0105 incorrect previousPartition\n"
         "warning 4C4C0106 incorrect footerPartition\n"
         "warning 4C4C0004 headerByteCount is not a multiple of kagSize\n"
         "warning 4C4C0005 indexByteCount is not a multiple of kagSize\n"
         "warning 4C4C0107 inconsistent indexSID and indexByteCount\n"
         "warning 4C4C0108 inconsistent bodySID and bodyOffset\n"},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        Structure structure;
        rows[i].change(structure);
        EXPECT_EQ(rows[i].reports, reports(structure)) << "row " << i;
    }
}

TEST(MXFStructureValidator, JudgesVersions) {
    const struct {
        std::uint16_t major;
        std::uint16_t minor;
        const char* report;
    } rows[] = {
        {1, 2, ""},
        {1, 3, ""},
        {1, 1, "error 4C4C0202 earlier version - 1.1 (implemented 1.2-1.3)\n"},
        {1, 0, "error 4C4C0202 earlier version - 1.0 (implemented 1.2-1.3)\n"},
        {1, 4, "warning 4C4C0202 later version - 1.4 (implemented 1.2-1.3)\n"},
        {1, 255, "warning 4C4C0202 later version - 1.255 (implemented 1.2-1.3)\n"},
        {1, 256, "error 4C4C0201 invalid version - 1.256 (implemented 1.2-1.3)\n"},
        {2, 0, "error 4C4C0201 incompatible version - 2.0 (implemented 1.2-1.3)\n"},
        {2, 2, "error 4C4C0201 incompatible version - 2.2 (implemented 1.2-1.3)\n"},
        {0, 2, "error 4C4C0201 incompatible version - 0.2 (implemented 1.2-1.3)\n"},
        {255, 9, "error 4C4C0201 incompatible version - 255.9 (implemented 1.2-1.3)\n"},
        {256, 2, "error 4C4C0201 invalid version - 256.2 (implemented 1.2-1.3)\n"},
        {65535, 65535, "error 4C4C0201 invalid version - 65535.65535 (implemented 1.2-1.3)\n"},
    };
    for (const auto& row : rows) {
        Structure structure;
        structure.pack(1).majorVersion = row.major;
        structure.pack(1).minorVersion = row.minor;
        EXPECT_EQ(row.report, reports(structure));
    }
}

TEST(MXFStructureValidator, KnowsTheGeneralizedPatterns) {
    const struct {
        std::size_t at;
        int byte;
        bool generalized;
    } rows[] = {
        {7, 0x0D, true}, {12, 3, true},  {13, 3, true},  {14, 0, true},  {15, 1, true},
        {12, 0, false},  {12, 4, false}, {13, 0, false}, {13, 4, false}, {12, 0x10, false},
        {11, 2, false},  {10, 1, false}, {6, 2, false},  {4, 1, false},  {0, 0, false},
    };
    for (const auto& row : rows) {
        Structure structure;
        structure.runIn = 1;
        structure.pack(0).operationalPattern = op1a;
        structure.pack(0).operationalPattern[row.at] = static_cast<std::uint8_t>(row.byte);
        EXPECT_EQ(row.generalized ? "error 4C4C0002 generalized operational pattern with run-in\n"
                                  : "",
                  reports(structure))
            << row.at << ' ' << row.byte;
    }
}

TEST(MXFStructureValidator, ChecksNoPositionsWithoutALocator) {
    Structure structure;
    for (FilePartition& partition : structure.file.partitions) {
        partition.pack.thisPartition = partition.pack.previousPartition = 77;
        partition.pack.footerPartition = partition.pack.thisPartition++;
    }
    structure.table = {{9, 9}};
    EXPECT_EQ("", reports(structure, false));
    EXPECT_NE("", reports(structure, true));
    structure.pack(0).kagSize = 3;
    EXPECT_EQ("warning 4C4C0004 headerByteCount is not a multiple of kagSize\n",
              reports(structure, false));
}

TEST(MXFStructureValidator, PassesEverythingOnAndFollowsFileAfterFile) {
    Recording recording;
    StructureRecorder next(recording);
    MXFStructureValidator validator(next);
    KeepingErrorHandler errors(recording);
    SetLocator locator;
    const auto textOf = [&](const Structure& structure, const Locator* used) {
        recording = Recording();
        if (used != nullptr) {
            validator.setLocator(used);
        }
        structure.send(validator, locator);
        return recording.text();
    };
    const auto events = [](const std::string& first, const std::string& second) {
        return "startStructure\n"
               "startPartition header 4 this 0 packByteCount 128\nendPartition header\n" +
               first + "packByteCount 128\nendPartition body\n" +
               "startPartition footer 4 this 386 packByteCount 128\nendPartition footer\n" +
               second + "endStructure\n";
    };
    const std::string sound =
        events("startPartition body 4 this 178 ", "randomIndex 0:0 1:178 0:386\n");
    const std::string silent = events("startPartition body 4 this 1 ", "randomIndex 1:0\n");
    Structure wrong;
    wrong.pack(1).thisPartition = 1;
    wrong.table = {{1, 0}};
    EXPECT_EQ(silent, textOf(wrong, &locator)) << "without an error handler";
    validator.setErrorHandler(&errors);
    EXPECT_EQ(sound, textOf(Structure(), &locator));
    wrong.runIn = 5;
    EXPECT_EQ("runIn 5\n" + events("warning 4C4C0104 incorrect thisPartition\n"
                                   "startPartition body 4 this 1 ",
                                   "warning 4C4C0006 incorrect random index value\n"
                                   "randomIndex 1:0\n"),
              textOf(wrong, &locator));
    EXPECT_EQ(sound, textOf(Structure(), &locator));
    // The locator holds for one file.
    wrong.runIn = 0;
    EXPECT_EQ(silent, textOf(wrong, nullptr));

    Structure bare;
    bare.file.partitions.clear();
    bare.hasTable = false;
    EXPECT_EQ("startStructure\n"
              "error 4C4C0003 missing random index or non-zero footerPartition in the header "
              "partition pack\nendStructure\n",
              textOf(bare, nullptr));
}

// Events as letters: r runIn, s startStructure, e endStructure, x randomIndex; H B F start and h b
// f end a header, body or footer partition; K starts one with a key that isn't a partition's.
TEST(MXFStructureValidator, RefusesAWrongOrderOfEvents) {
    const auto send = [](MXFStructureValidator& to, char event) {
        const MXFPartitionPack pack;
        switch (event) {
        case 'r':
            return to.runIn(0);
        case 's':
            return to.startStructure();
        case 'e':
            return to.endStructure(false);
        case 'x':
            return to.randomIndex({{0, 0}});
        case 'K':
            return to.startPartition(randomIndexKey, pack, 0);
        case 'H':
        case 'B':
        case 'F':
            return to.startPartition(partitionKey(event == 'H'   ? 2
                                                  : event == 'B' ? 3
                                                                 : 4,
                                                  4),
                                     pack, 0);
        default:
            return to.endPartition(partitionKey(event == 'h' ? 2 : event == 'b' ? 3 : 4, 4));
        }
    };
    const struct {
        std::vector<std::string> before;
        std::string refused;
        const char* check;
    } rows[] = {
        {{"", "r", "sH", "sHhF"}, "HBF", "before partition"},
        {{"", "r", "sH", "sHhF"}, "x", "before random index"},
        {{"r", "s", "sH", "sHh", "sx"}, "r", "before run-in"},
        {{"s", "sH", "sHh", "sHhFf", "sx"}, "s", "before start"},
        {{"", "s", "sHh", "sx", "sHhFf"}, "hbf", "in partition"},
        {{"sF", "sHhF"}, "hb", "is footer partition"},
        {{"sH", "sHhB"}, "f", "is header or body partition"},
        {{"s"}, "K", "is partition"},
    };
    const auto failureIn = [&](const std::string& events) {
        DullMXFStructureHandler next;
        MXFStructureValidator validator(next);
        std::string failure;
        for (std::size_t i = 0; i < events.size() && failure.empty(); ++i) {
            failure = failureOf([&] { send(validator, events[i]); });
            failure += !failure.empty() && i + 1 < events.size() ? ", too early" : "";
        }
        return failure;
    };
    for (const auto& row : rows) {
        for (const std::string& before : row.before) {
            for (const char refused : row.refused) {
                EXPECT_EQ(row.check, failureIn(before + refused)) << before << ' ' << refused;
            }
        }
    }
    for (const char* lawful : {"rsHhBbFfFfxHhxxFfe", "e", "rere", "sHe", "sesxes"}) {
        EXPECT_EQ("", failureIn(lawful)) << lawful;
    }
}

TEST(MXFStructureValidator, ReportsOrderBehindTheRandomIndex) {
    DullMXFStructureHandler next;
    MXFStructureValidator validator(next);
    KeepingErrorHandler errors;
    validator.setErrorHandler(&errors);
    validator.startStructure();
    validator.randomIndex({{0, 0}});
    for (const int kind : {2, 4, 3}) {
        validator.startPartition(partitionKey(kind, 4), MXFPartitionPack(), 0);
        validator.endPartition(partitionKey(kind, 4));
        validator.randomIndex({{0, 0}});
    }
    validator.randomIndex({{0, 0}});
    validator.endStructure(false);
    const std::string partition = "error 4C4C0003 unexpected partition\n";
    const std::string table = "error 4C4C0003 unexpected random index\n";
    EXPECT_EQ(table + partition + partition + partition + table, errors.text());
}

TEST(MXFStructureValidator, WantsTheRunInThatTheLocatorTells) {
    const auto start = [](std::uint64_t runIn, std::uint64_t position) {
        DullMXFStructureHandler next;
        MXFStructureValidator validator(next);
        SetLocator locator;
        locator.set(position);
        validator.setLocator(&locator);
        if (runIn != 0) {
            validator.runIn(runIn);
        }
        return failureOf([&] { validator.startStructure(); });
    };
    EXPECT_EQ("", start(0, 0));
    EXPECT_EQ("", start(65535, 65535));
    EXPECT_EQ("correct runIn", start(0, 1));
    EXPECT_EQ("correct runIn", start(2, 1));
    EXPECT_EQ("correct runIn", start(1, 0));
}
