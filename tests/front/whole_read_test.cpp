// A whole file through all handlers at once: the order of the events, that each handler sees the
// same whoever else is set, and that essence comes out byte for byte.

#include "front/xmlMetadata.h"
#include "gc/system/proxySystemItem.h"
#include "gc/system/systemItem.h"
#include "klv/keyLiteral.h"
#include "metadata/primed/keys.h"
#include "support/EventRecorder.h"
#include "support/Testing.h"

namespace {

/// One bit for each handler.
enum Handler : unsigned {
    Structure = 1,
    Metadata = 2,
    Index = 4,
    GCStructure = 8,
    System = 16,
    Proxy = 32,
    Essence = 64,
    Errors = 128,
    All = 255,
};

struct WholeRead {
    using Mode = VEXAValidationMode::Enum;

    WholeRead(const Bytes& file, unsigned handlers, bool seekable = true,
              Mode mode = VEXAValidationMode::Off, std::function<void(VEXAReader&)> setUp = {}) {
        const auto stream = boost::make_shared<TestStream>(file, TestStreamOptions{seekable});
        const auto reader = createVEXAReader(stream, mode);
        if (setUp) {
            setUp(*reader);
        }
        const auto without = [&](unsigned handler) { return (handlers & handler) == 0; };
        setRecorders(*reader, recorder, recording);
        without(Structure) ? reader->setStructureHandler(nullptr) : void();
        without(Metadata) ? reader->setMetadataHandler(nullptr) : void();
        without(Index) ? reader->setIndexHandler(nullptr) : void();
        without(GCStructure) ? reader->setGCStructureHandler(nullptr) : void();
        without(System) ? reader->setSDTICPSystemHandler(nullptr) : void();
        without(Proxy) ? reader->setQZProxySystemHandler(nullptr) : void();
        without(Essence) ? reader->setEssenceHandler(nullptr) : void();
        without(Errors) ? void() : reader->setErrorHandler(errors);
        try {
            reader->read();
        } catch (const klvutil::parse_error& error) {
            recording.add(std::string("ended by ") + error.what());
        }
    }

    Recording recording;
    boost::shared_ptr<KeepingErrorHandler> errors = boost::make_shared<KeepingErrorHandler>();
    boost::shared_ptr<EventRecorder> recorder = boost::make_shared<EventRecorder>(recording);
};

/// What the whole read says of those handlers.
Lines linesOf(const Lines& all, unsigned handlers) {
    const std::map<char, unsigned> handlerOf = {{'m', Metadata}, {'i', Index}, {'g', GCStructure},
                                                {'s', System},   {'p', Proxy}, {'e', Essence}};
    Lines lines;
    for (const std::string& line : all) {
        const bool named = line[1] == ' ';
        const unsigned handler = named                         ? handlerOf.at(line[0])
                                 : line.rfind("ended", 0) == 0 ? unsigned{All}
                                                               : unsigned{Structure};
        if ((handlers & handler) != 0 || handler == All) {
            lines.push_back(line);
        }
    }
    return lines;
}

TEST(WholeRead, TellsTheSameAsBefore) {
    for (const std::string& name : testDataNames()) {
        SCOPED_TRACE(name);
        const Bytes file = testData(name);
        const WholeRead read(file, All);
        const std::string stem = name.substr(0, name.find('.'));
        std::ifstream golden(testDataPath("expected/events_" + stem + ".txt"));
        std::ostringstream expected;
        expected << golden.rdbuf();
        EXPECT_EQ(read.recording.text() + read.errors->text(), expected.str());
        EXPECT_EQ(WholeRead(file, All, false).recording.text() + read.errors->text(),
                  expected.str());
    }
}

TEST(WholeRead, TellsEachHandlerTheSameWhoeverElseIsSet) {
    for (const std::string& name : testDataNames()) {
        const Bytes file = testData(name);
        const Lines all = WholeRead(file, All).recording.lines();
        const bool small = file.size() < 130000;
        for (unsigned handlers = 0; handlers < All; handlers += small ? 1 : 17) {
            EXPECT_EQ(WholeRead(file, handlers).recording.lines(), linesOf(all, handlers))
                << name << " with handlers " << handlers;
        }
    }
}

using klvutil::operator""_key;

constexpr KLVKey proxyItem = gcsystem::proxySystemKey;
constexpr KLVKey rawPicture = "060E2B34.01020106.0E067F03.15017F00"_key;
constexpr KLVKey privatePicture = "060E2B34.01020101.0E060301.15014000"_key;
constexpr KLVKey privateData = "060E2B34.01020101.0E060301.17014000"_key;
constexpr KLVKey callersSound = "060E2B34.01020101.0E7F0000.00000000"_key;

/// Byte 15 is the kind.
struct CallersKeys : VEXAGCEssenceKeyClassifier {
    static bool is(const KLVKey& key, int kind) { return isOurs(key) && key[15] == kind; }
    static bool isOurs(const KLVKey& key) { return key[8] == 0x0E && key[9] == 0x7F; }
    bool isEssence(const KLVKey& key) override { return isOurs(key); }
    bool isPicture(const KLVKey& key) override { return is(key, 1); }
    bool isSound(const KLVKey& key) override { return is(key, 0); }
    bool isData(const KLVKey& key) override { return is(key, 2); }
    bool isCompound(const KLVKey& key) override { return is(key, 3); }
};

/// In each of its regions something is wrong, and something that few files have.
Bytes faultyFile() {
    FileBuilder file = soundFile();
    KLVBytes& header = file.partitions[0].header;
    header = KLVBytes().klv("060E2B34.02050101.0D010201.01050100"_key, KLVBytes{1});
    header.klv(front::xmlMetadataKey, KLVBytes{'<', 'a', '/', '>'});
    header.klv(
        metadata::keys::preface,
        KLVBytes{0x3C, 0x0A}.number(16, 2).counting(16).number(0x3B05, 2).number(2, 2).raw({1, 3}));
    header.klv(front::xmlMetadataKey, KLVBytes{});
    file.partitions[1].index =
        KLVBytes().klv("060E2B34.02530101.0D010201.01100100"_key, KLVBytes());
    KLVBytes& body = file.partitions[1].body;
    body = KLVBytes().klv(proxyItem, KLVBytes{1, 1}.number(4, 2).number(7, 4));
    body.klv(rawPicture, KLVBytes{1}).klv(proxyItem, KLVBytes());
    body.klv(privatePicture, KLVBytes{2}).klv(privateData, KLVBytes{3});
    body.klv(callersSound, KLVBytes{4}).klv(gcsystem::systemMetadataKey, KLVBytes().counting(56));
    return file.layOut().bytes().bytes();
}

TEST(WholeRead, ReportsWhatIsWrongInEachRegion) {
    const WholeRead read(faultyFile(), All);
    Lines lines = read.recording.lines();
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const std::string& line) { return line[1] != ' '; }),
                lines.end());
    const Lines expected = {
        "m startMetadata",       "m xml 3C612F3E",        "m model of 1",
        "m xml null 0",          "m endMetadata",         "i startIndexTable",
        "i segment 0 0",         "i endIndexTable",       "g startStream 0",
        "g startEditUnit",       "p proxy 7:0",           "e form 131",
        "e wants 15017F00 1",    "e picture 15017F00 01", "g endEditUnit",
        "g startEditUnit",       "p proxy 0:0",           "e wants 15014000 1",
        "e picture 15014000 02", "e wants 17014000 1",    "e data 17014000 03",
        "g endEditUnit",         "g endStream",
    };
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(read.errors->text(),
              "error 4C4C0301 @149 invalid primer value - assertion failure: successful get()\n"
              "error 4C4F0002 @219 missing Preface.lastModifiedDate\n"
              "error 4C4F0002 @219 missing Preface.identifications\n"
              "error 4C4F0002 @219 missing Preface.contentStorage\n"
              "error 4C4F0002 @219 missing Preface.operationalPattern\n"
              "error 4C4F0002 @219 missing Preface.essenceContainers\n"
              "error 4C4F0002 @219 missing Preface.dmSchemes\n"
              "error 4C4C0403 @387 missing instanceUID\n"
              "error 4C4C0403 @387 missing indexEditRate\n"
              "error 4C4C0403 @387 missing indexStartPosition\n"
              "error 4C4C0403 @387 missing indexDuration\n"
              "error 4C4C0403 @387 missing bodySID\n"
              "warning 4C4C0008 @387 inconsistent indexDuration and editUnitByteCount\n"
              "warning 4C4C0008 @387 inconsistent editUnitByteCount and indexEntryArray\n"
              "error 4C510004 @415 missing timecodes\n"
              "error 4C510004 @456 missing frameCount\n"
              "error 4C510004 @456 missing timecodes\n"
              "error 4C4D0001 @518 invalid GC essence element - "
              "06.0E.2B.34.01.02.01.01.0E.7F.00.00.00.00.00.00\n"
              "error 4C4E0002 @595 invalid SDTI-CP system metadata value - "
              "assertion failure: valid external length\n");
}

/// Two kinds of essence in one edit unit, with the caller's own among them.
TEST(WholeRead, KnowsPrivateKeysAndThoseOfTheCaller) {
    FileBuilder file = soundFile();
    KLVBytes& body = file.partitions[1].body;
    body = KLVBytes().klv(rawPicture, KLVBytes{1}).klv(callersSound, KLVBytes{2});
    const Bytes bytes = file.layOut().bytes().bytes();
    const auto setClassifier = [](VEXAReader& reader) {
        reader.setEssenceKeyClassifier(boost::make_shared<CallersKeys>());
    };
    const auto essenceAndReports = [&](WholeRead::Mode mode, bool classified) {
        const WholeRead read(bytes, Essence | Errors, true, mode,
                             classified ? setClassifier : std::function<void(VEXAReader&)>());
        return std::to_string(read.recording.lines().size() / 2) + ' ' + read.errors->text();
    };
    const std::string key =
        " GC essence element - 06.0E.2B.34.01.02.01.01.0E.7F.00.00.00.00.00.00\n";
    EXPECT_EQ(essenceAndReports(VEXAValidationMode::Off, false),
              "1 error 4C4D0001 @377 invalid" + key);
    EXPECT_EQ(essenceAndReports(VEXAValidationMode::Off, true),
              "2 error 4C4D0003 @377 unexpected" + key);
    EXPECT_EQ(essenceAndReports(VEXAValidationMode::Full, true),
              "2 error 4C4D0003 @377 unexpected" + key);
    EXPECT_EQ(essenceAndReports(VEXAValidationMode::Restricted, true), "2 ");

    KLVBytes& kinds = file.partitions[1].body = KLVBytes();
    for (const int kind : {0, 1, 2, 3}) {
        KLVKey callers = callersSound;
        callers[15] = static_cast<std::uint8_t>(kind);
        kinds.klv(callers, KLVBytes());
    }
    const WholeRead read(file.layOut().bytes().bytes(), Essence, true,
                         VEXAValidationMode::Restricted, setClassifier);
    std::string told;
    for (const std::string& line : read.recording.lines()) {
        told += line.find("wants") == 2 ? "" : line.substr(2, line.find(' ', 2) - 1);
    }
    EXPECT_EQ(told, "form sound picture data compound ");
}

/// What is set during a run counts from the next one on, and what a run has lives until its end. A
/// factory keeps its own error handler.
TEST(WholeRead, TakesTheFactoryAndTheHandlersThatWereSet) {
    struct Leaving : EventRecorder {
        using EventRecorder::EventRecorder;
        ~Leaving() override { left(); }
        std::function<void()> left;
    };
    const auto stream = boost::make_shared<TestStream>(faultyFile());
    const auto reader = createVEXAReader(stream);
    Recording recording;
    const auto recorder = boost::make_shared<EventRecorder>(recording);
    auto leaving = boost::make_shared<Leaving>(recording);
    leaving->left = [&] { recording.add("left"); };
    reader->setMetadataHandler(std::exchange(leaving, nullptr));
    const auto factory = boost::make_shared<MXFFormatMetadataModelFactory>();
    const auto errors = boost::make_shared<KeepingErrorHandler>();
    const auto factorysErrors = boost::make_shared<KeepingErrorHandler>();
    factory->setErrorHandler(factorysErrors);
    reader->setMetadataFactory(factory);
    reader->setErrorHandler(errors);
    recording.interfere(0, [&] {
        reader->setMetadataHandler(nullptr);
        reader->setMetadataFactory(boost::make_shared<MXFAES3MetadataModelFactory>());
    });
    const auto read = [&] {
        stream->clear();
        stream->seekg(0);
        reader->read();
        recording.add("");
    };
    read();
    read();
    reader->setMetadataHandler(recorder);
    read();
    EXPECT_EQ(errors->text().find("Preface"), std::string::npos);
    EXPECT_EQ(factorysErrors->reports().size(), 6U);
    EXPECT_EQ(
        recording.text(),
        "m startMetadata\nm xml 3C612F3E\nm model of 1\nm xml null 0\nm endMetadata\nleft\n\n\n"
        "m startMetadata\nm xml 3C612F3E\nm xml null 0\nm endMetadata\n\n");
}

/// Counts an event that begins something up, and one that ends it down.
void follow(const std::string& line, std::map<std::string, int>& open) {
    const std::size_t word = line.rfind(' ', 1) == 1 ? 2 : 0;
    const std::string name = line.substr(word, line.find(' ', word) - word);
    for (const auto& [prefix, step] : {std::pair("start", 1), std::pair("end", -1)}) {
        const std::size_t size = std::string(prefix).size();
        if (name.rfind(prefix, 0) == 0 && std::isupper(name[size]) != 0) {
            open[line.substr(0, word) + name.substr(size)] += step;
        }
    }
}

/// A read in which something happens at an event.
struct DisturbedRead {
    using Disturbance = std::function<void(VEXAReader&, std::istream&)>;

    DisturbedRead(const Bytes& file, std::size_t event, const Disturbance& disturbance) {
        Recording recording;
        const auto stream = boost::make_shared<TestStream>(file);
        const auto reader = createVEXAReader(stream);
        recording.interfere(event, [&] { disturbance(*reader, *stream); });
        const auto recorder = boost::make_shared<EventRecorder>(recording);
        setRecorders(*reader, recorder, recording);
        reader->setQZProxySystemHandler(nullptr);
        reader->setEssenceHandler(nullptr);
        reader->setErrorHandler(boost::make_shared<KeepingErrorHandler>(recording));
        try {
            reader->read();
        } catch (const std::domain_error&) {
            thrown = true;
        }
        lines = recording.lines();
        end = stream->tellg();
    }

    Lines lines;
    bool thrown = false;
    /// Where it left the stream.
    std::streamoff end = 0;
};

Lines undisturbed(const Bytes& file) {
    return DisturbedRead(file, SIZE_MAX, {}).lines;
}

/// Whoever throws, and whenever. An event that its handler fails at counts as told.
TEST(WholeRead, EndsWhatItBeganAndNothingElse) {
    for (const std::string name : {"avc_longgop_50p.mxf", "longgop_25p_run_in.mxf"}) {
        const Bytes file = testData(name);
        const Lines all = undisturbed(file);
        for (std::size_t thrower = 0; thrower < all.size(); ++thrower) {
            SCOPED_TRACE(name + " where " + all[thrower] + " fails, event " +
                         std::to_string(thrower));
            DisturbedRead read(file, thrower,
                               [](auto&, auto&) { throw std::domain_error("enough"); });
            EXPECT_TRUE(read.thrown);
            read.lines.insert(read.lines.begin() + static_cast<std::ptrdiff_t>(thrower),
                              all[thrower]);
            std::map<std::string, int> open;
            for (const std::string& line : read.lines) {
                follow(line, open);
                for (const auto& [what, count] : open) {
                    ASSERT_TRUE(count == 0 || count == 1) << what << " at " << line;
                }
            }
            for (const auto& [what, count] : open) {
                const bool failed = all[thrower].rfind(what.substr(0, 2), 0) == 0;
                ASSERT_TRUE(count == 0 || failed) << what;
            }
        }
    }
}

/// Whoever says so, and whenever: the run goes no further than the element at hand.
TEST(WholeRead, StopsWhereAHandlerSaysSo) {
    for (const std::string name : {"avc_longgop_50p.mxf", "longgop_25p_run_in.mxf"}) {
        const Bytes file = testData(name);
        const std::size_t runIn = file.size() - withoutRunIn(file).size();
        const std::vector<WalkedElement> elements = walkKLV(file, runIn);
        const Lines all = undisturbed(file);
        for (std::size_t event = 0; event < all.size(); ++event) {
            SCOPED_TRACE(name + " stopped at " + all[event] + ", event " + std::to_string(event));
            std::streamoff told = -1;
            const DisturbedRead read(file, event, [&](VEXAReader& reader, std::istream& stream) {
                told = stream.good() ? std::streamoff(stream.tellg()) : -1;
                reader.stop();
            });
            ASSERT_TRUE(std::equal(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(event),
                                   read.lines.begin()));
            std::map<std::string, int> open;
            for (std::size_t i = 0; i < read.lines.size(); ++i) {
                follow(read.lines[i], open);
                ASSERT_TRUE(i <= event || read.lines[i].find(" 4C") == std::string::npos);
            }
            for (const auto& [what, count] : open) {
                ASSERT_EQ(count, 0) << what;
            }
            if (told >= 0) {
                const auto present =
                    std::find_if(elements.begin(), elements.end(), [&](const auto& element) {
                        return static_cast<std::streamoff>(element.end) >= told;
                    });
                ASSERT_TRUE(present == elements.end() ||
                            read.end <= static_cast<std::streamoff>(present->end));
                ASSERT_NE(std::find(read.lines.begin(), read.lines.end(), "endStructure aborted"),
                          read.lines.end());
            }
        }
    }
}

/// Between runs a stop is for the next one, and for that one only.
TEST(WholeRead, ForgetsAStopWhenTheRunEnds) {
    const auto stream = boost::make_shared<TestStream>(soundFile().bytes().bytes());
    const auto reader = createVEXAReader(stream);
    Recording recording;
    reader->setStructureHandler(boost::make_shared<StructureRecorder>(recording));
    reader->stop();
    reader->read();
    EXPECT_EQ(recording.text(), "startStructure\nendStructure aborted\n");
    EXPECT_EQ(stream->tellg(), 0);
    reader->read();
    EXPECT_EQ(recording.lines().back(), "endStructure");
}

TEST(WholeRead, OpensAFileByItsPath) {
    const std::string path = testDataPath("d10_30_625.mxf");
    Recording recording;
    const auto reader = createVEXAReader(path);
    reader->setStructureHandler(boost::make_shared<StructureRecorder>(recording));
    reader->read();
    EXPECT_EQ(recording.lines(),
              WholeRead(testData("d10_30_625.mxf"), Structure).recording.lines());
    EXPECT_THROW(createVEXAReader("no such file"), std::ios_base::failure);
}

} // namespace
