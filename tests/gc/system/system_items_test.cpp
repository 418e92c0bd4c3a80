#include "gc/system/contentPackageRate.h"
#include "support/Recoding.h"
#include "support/Testing.h"

#include <boost/algorithm/string.hpp>

namespace {

using namespace gcsystem;
using Items = MXFSDTICPSystemHandler::Items;
using Element = std::pair<KLVKey, Items>;

/// What a parser of both formats tells, such as `s package 131:2 136:0`, and what it reports.
struct Reading : Recording, EventRecorder {
    KeepingErrorHandler errors{*this};
    VEXASystemParser parser;

    Reading() : EventRecorder(static_cast<Recording&>(*this)) {
        parser.setErrorHandler(errors); // before the handlers; elsewhere behind them
        parser.setSDTICPSystemHandler(*this);
        parser.setQZProxySystemHandler(*this);
    }
};

const KLVKey packKey = smpteKey({2, 5, 1, 1, 13, 1, 3, 1, 4, 1, 1});
const KLVKey proxyKey = smpteKey({2, 0x53, 1, 1, 13, 1, 3, 1, 20, 2, 1});

Element set(int kind, int count, Items items, int form = 0x43) {
    return {smpteKey({2, form, 1, 1, 13, 1, 3, 1, 4, 1, kind, count}), std::move(items)};
}

Element pack(std::uint8_t bitmap, std::size_t size = 57) {
    return {packKey, {{0, Bytes(size, bitmap)}}};
}

/// E and e are errors, W and w warnings; - stands for SDTI-CP, and # for the start of a key.
std::string outcome(const std::vector<Element>& elements) {
    Reading reading;
    for (const auto& [key, items] : elements) {
        if (reading.parser.wantsSystem(key)) {
            key == packKey ? reading.parser.systemFixedLengthPack(key, items[0].second)
                           : reading.parser.systemLocalSet(key, items);
        }
    }
    std::string text = reading.text();
    text = std::regex_replace(text, std::regex("s pack [^\n]*"), "pack");
    text = std::regex_replace(text, std::regex("(^|\n)[sp] "), "$1");
    boost::erase_all(text, " value - assertion failure");
    boost::replace_all(text, "error 4C4E000", "E");
    boost::replace_all(text, "error 4C51000", "e");
    boost::replace_all(text, "warning 4C4E000", "W");
    boost::replace_all(text, "warning 4C51000", "w");
    boost::replace_all(text, " SDTI-CP ", " - ");
    boost::replace_all(text, " - 06.0E.2B.34.02.", " #");
    boost::replace_all(text, "\n", "; ");
    return text;
}

const Items one{{0x83, {1, 2}}}, two{{0x83, {1, 2}}, {0x88, {}}};

TEST(SystemItems, AreCodedByteForByteAndParsedAgain) {
    MXFSDTICPSystemMetadata full{0x7F, 0x0D, 3, 0x0405, 0x0607, {}, {0x81, 1}, {0x82, 2}};
    full.essenceContainer = smpteKey({4, 1, 1, 3, 13, 1, 3, 1, 2, 0x7F, 1});
    KLVBytes value{0x7F, 0x0D, 3, 6, 7, 4, 5}; // bitmap, rate, type, channel, continuity count
    value.key(full.essenceContainer).raw({0x81, 1}).raw(Bytes(15)).raw({0x82, 2}).raw(Bytes(15));
    const KLVBytes item{0x83, 0, 2, 1, 2}, both{0x83, 0, 2, 1, 2, 0x88, 0, 0}; // tag, length, value
    KLVBytes bytes = KLVBytes().klv(packKey, value).klv(set(2, 2, {}).first, both);
    bytes.klv(set(3, 1, {}).first, item).klv(set(4, 0, {}).first, KLVBytes());
    bytes.klv(set(5, 1, {}).first, item);
    bytes.klv(set(6, 0, {}, 0x63).first, KLVBytes{0x10, 0, 0, 0, 1, 9});
    value = KLVBytes{1, 1, 0, 4, 0, 0, 0, 2, 1, 2, 0, 24, 0, 0, 0, 2, 0, 0, 0, 8}; // two timecodes
    bytes.klv(proxyKey, value.counting(16));
    bytes.klv(proxyKey, KLVBytes{1, 2, 0, 8, 0, 0, 0, 0, 0, 0, 0, 8});

    SystemRecoding coding, recoding;
    coding.coder.getSDTICPSystemHandler()->systemMetadataPack(full);
    EXPECT_EQ(coding.out.str(), bytes.text().substr(0, 20 + 57));
    TestStream stream(bytes.bytes());
    GenericKLVReader(recoding.splitter).parse(stream);
    EXPECT_EQ(recoding.out.str(), bytes.text());
}

TEST(SystemItems, OfRealFilesAreCodedAgainToTheSameBytesAndTheirStampsCount) {
    int stamps = 0;
    for (const std::string& name : testDataNames()) {
        const Bytes file = testData(name);
        KLVBytes expected;
        std::uint32_t count = boost::contains(name, "_25p") ? 900000 : 0; // 10:00:00:00
        count = boost::contains(name, "_2997") ? 1790 : count;            // 00:00:59;20
        for (const auto& element : walkKLV(file, file.size() - withoutRunIn(file).size())) {
            if (element.key[4] == 2 && element.key[10] == 3) {
                expected.raw(Bytes(&file[element.offset], &file[element.end]));
            }
            if (element.key == packKey) {
                const std::uint8_t rate = file[element.value + 1];
                const unsigned char base = (rate & 1) != 0 ? 30 : 25;
                const auto calculator = createTimecodeCalculator(base, base == 30, rate >= 8);
                const auto stamp = stampOf(timecodeAt(*calculator, count++, base));
                EXPECT_TRUE(std::equal(stamp.begin(), stamp.end(), &file[element.value + 40]));
                ++stamps;
            }
        }
        SystemRecoding recoding;
        MXFReader reader;
        reader.setEssenceHandler(&recoding.splitter);
        TestStream stream(file);
        failureOf([&] { reader.parse(stream); }); // one file is cut short
        EXPECT_EQ(recoding.out.str() + recoding.errors.text(), expected.text()) << name;
    }
    EXPECT_EQ(stamps, 224);
}

TEST(MXFSDTICPSystemParser, ReportsWhatIsWrongOnceAndGoesOn) {
    const Element unknown{smpteKey({2, 0x43, 1, 1, 13, 1, 3, 1, 4, 2, 2}), {}};
    const std::pair<std::vector<Element>, std::string> cases[] = {
        {{pack(0), set(2, 2, two), set(2, 1, one), pack(0), set(2, 1, one), set(2, 1, one)},
         "pack; package 131:2 136:0; E3 unexpected extra - package metadata; package 131:2; pack; "
         "package 131:2; package 131:2; "},
        {{pack(0), set(2, 0, one), set(3, 255, {}), set(4, 1, two), set(5, 2, one), pack(0),
          set(2, 0, one)},
         "pack; W5 incorrect - package metadata block count; package 131:2; W5 incorrect - picture "
         "metadata block count; picture; W5 incorrect - sound metadata block count; sound 131:2 "
         "136:0; W5 incorrect - data metadata block count; data 131:2; pack; package 131:2; "},
        {{set(3, 0, {}), set(3, 0, {}), set(4, 0, {}), set(4, 0, {}), set(5, 0, {}), set(5, 0, {})},
         "E2 missing - system metadata; picture; E3 unexpected extra - picture metadata; picture; "
         "sound; E3 unexpected extra - sound metadata; sound; data; E3 unexpected extra - data "
         "metadata; data; "},
        {{pack(1), pack(1), set(6, 0, one, 0x63), pack(0), set(6, 0, one, 0x63), set(2, 0, {}),
          set(6, 0, one, 0x63), set(2, 0, {})},
         "pack; E4 missing - control data; pack; control 131:2; pack; E4 unexpected - control "
         "data; control 131:2; E2 missing - system metadata; package; control 131:2; package; "},
        {{pack(1), set(6, 0, {}, 0x63), pack(1), set(6, 0, two, 0x63)},
         "pack; E4 incorrect - control data block count; pack; control 131:2; "},
        {{pack(0), set(6, 0, one), set(2, 1, one, 0x63), set(2, 1, one, 0x63), set(1, 1, {}, 5)},
         "pack; E1 invalid - system element #43.01.01.0D.01.03.01.04.01.06.00; E1 invalid - system "
         "element #63.01.01.0D.01.03.01.04.01.02.01; E1 invalid - system element "
         "#05.01.01.0D.01.03.01.04.01.01.01; "},
        {{pack(0), set(1, 1, one), set(0, 1, one), unknown},
         "pack; E1 invalid - system element #43.01.01.0D.01.03.01.04.01.01.01; E1 invalid - system "
         "element #43.01.01.0D.01.03.01.04.01.00.01; E1 invalid - system element "
         "#43.01.01.0D.01.03.01.04.02.02.00; "},
    };
    for (const auto& [elements, expected] : cases) {
        EXPECT_EQ(outcome(elements), expected);
    }
    for (std::size_t size = 0; size <= 70; ++size) {
        EXPECT_EQ(outcome({pack(1, size), set(2, 1, one)}),
                  size == 57
                      ? "pack; package 131:2; "
                      : "E2 invalid - system metadata: valid external length; package 131:2; ");
    }
    EXPECT_EQ(outcome({pack(0), set(2, 0, Items(256))}).substr(0, 20), "pack; W5 incorrect -");
    Reading reading;
    for (int i = 0; i < 3000; ++i) { // 1,500 keys, twice: a thousand of them are remembered
        reading.parser.wantsSystem(set(i % 1500 / 6, i % 1500 % 6, {}, 3).first);
    }
    EXPECT_EQ(reading.errors.reports().size(), 2000U);
}

TEST(MXFQZProxySystemParser, ReportsWhatIsWrongAndGoesOn) {
    const std::pair<Items, std::string> cases[] = {
        {{{0x0102, batch(1, 8, 8)}}, "proxy 0:1; "},
        {{{0x0102, batch(2, 12, 24)}}, "e4 missing frameCount; proxy 0:2; "},
        {{}, "e4 missing frameCount; e4 missing timecodes; proxy 0:0; "},
        {{{0x0101, {0, 0, 0, 1}}}, "e4 missing timecodes; proxy 1:0; "},
        {{{0x0102, batch(1, 8, 8)}, {0x0101, {0, 0, 0, 0}}},
         "w5 inconsistent frameCount and timecodes; proxy 0:1; "},
        {{{0x0101, {0, 0, 2}}, {0x0102, batch(1, 7, 8)}, {0x0101, {0, 0, 0, 1}}, {0x0102, {}}},
         "e5 invalid frameCount: valid external length; e5 invalid timecodes: valid external "
         "length; e2 unexpected repeated frameCount; e2 unexpected repeated timecodes; proxy "
         "0:0; "},
        // What is whole stays.
        {{{0x0102, batch(UINT32_MAX, 8, 31)}, {0x01AB, {}}, {0x0101, {0, 0, 0, 3}}},
         "e5 invalid timecodes: successful read(); w3 unrecognized QZProxy metadata item - 01.AB; "
         "proxy 3:3; "},
        {{{0x0102, batch(1, 9, 8)}}, "e5 invalid timecodes: successful seekg(); proxy 0:1; "},
        {{{0x0102, batch(1, 8, 9)}}, "e5 invalid timecodes: valid external length; proxy 0:1; "},
    };
    for (const auto& [items, expected] : cases) {
        EXPECT_EQ(outcome({{proxyKey, items}}), expected);
    }
    EXPECT_EQ(outcome({{smpteKey({2, 0x13, 1, 1, 13, 1, 3, 1, 20, 2, 1, 1}), {}}}),
              "e1 invalid QZProxy system element #13.01.01.0D.01.03.01.14.02.01.01; ");
}

TEST(MXFSDTICPSystemCoder, TellsNothingThatIsNotWanted) {
    Reading refusing;
    refusing.wanted = false;
    MXFSDTICPSystemCoder coder(refusing);
    coder.systemMetadataPack({}), coder.packageMetadata(one), coder.controlData(1, {});
    EXPECT_EQ(refusing.text(), "");
}

TEST(ContentPackageRate, IsThatOfTheStandard) {
    const std::tuple<MXFRational, int, unsigned> rates[] = {
        {{24, 1}, 2, 24},       {{24000, 1001}, 3, 24}, {{-50, -2}, 4, 25},     {{30, 1}, 6, 30},
        {{30000, 1001}, 7, 30}, {{48, 1}, 8, 24},       {{48000, 1001}, 9, 24}, {{50, 1}, 10, 25},
        {{60, 1}, 12, 30},      {{60000, 1001}, 13, 30}};
    for (const auto& [editRate, byte, base] : rates) {
        EXPECT_EQ(contentPackageRate(editRate), byte);
        EXPECT_EQ(roundedTimecodeBase(editRate), base);
    }
    for (const MXFRational& other : {MXFRational{0, 0}, {25000, 1001}, {72, 1}, {1, 0}, {-25, 1}}) {
        EXPECT_EQ(failureOf([&] { contentPackageRate(other); }), "valid edit rate");
    }
    int byte = 2;
    for (const unsigned rate : {24U, 25U, 30U, 48U, 50U, 60U, 72U, 75U, 90U, 96U, 100U, 120U}) {
        EXPECT_EQ(contentPackageRate(rate), byte);
        byte += 2;
    }
    EXPECT_EQ(roundedTimecodeBase({99, 2}), 50U); // rounded, and no double rate
    EXPECT_EQ(roundedTimecodeBase({121, 5}), 24U);
    EXPECT_EQ(failureOf([] { contentPackageRate(23U); }), "valid frame rate");
    EXPECT_EQ(failureOf([] { roundedTimecodeBase({25, 0}); }), "non-zero edit rate denominator");
    EXPECT_EQ(failureOf([] { roundedTimecodeBase({-25, 1}); }), "valid rounded timecode base");
}

TEST(UserStamps, HoldNumbersAndKeepOtherBits) {
    const MXFTimecode timecode{{0xF9, 0xF8, 0xF9, 0xE9, 1, 2, 3, 4}};
    EXPECT_TRUE(timecodeOf(stampOf(timecode)) == timecode);
    EXPECT_FALSE(timecodeOf(MXFSystemStamp{0x82, 1}));
    for (const unsigned base : {24U, 30U}) {
        MXFTimecode zero = timecode;
        setNumbers(zero, {}, base);
        EXPECT_EQ(zero, (MXFTimecode{{0x80, 0, 0x80, 0xC0, 1, 2, 3, 4}}));
    }
    MXFTimecode at25 = timecode;
    setNumbers(at25, {}, 25);
    EXPECT_EQ(at25, (MXFTimecode{{0x80, 0x80, 0x80, 0x40, 1, 2, 3, 4}}));
    setNumbers(at25, numbersOf(timecode, 25), 25);
    for (const auto& excess : {TimecodeNumbers{30}, {0, 80}, {0, 0, 80}, {0, 0, 0, 40}}) {
        EXPECT_EQ(failureOf([&] { setNumbers(at25, excess, 25); }), "valid tens");
    }
    EXPECT_EQ(at25, timecode);
    EXPECT_NE(numbersOf(timecode), numbersOf(timecode, 25)); // by the field mark alone
    EXPECT_EQ(toString(numbersOf(timecode)), toString(numbersOf(timecode, 25)));
    EXPECT_EQ(toString(numbersOf(timecode)), "29:79:78;39");
    EXPECT_EQ(failureOf([] { numbersOf({}, 0); }), "valid rounded timecode base");
    EXPECT_EQ(failureOf([] { numbersOf({}, 50); }), "valid rounded timecode base");
}

} // namespace
