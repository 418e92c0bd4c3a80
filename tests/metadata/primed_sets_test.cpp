#include "metadata/primed/MXFMetadataParser.h"
#include "metadata/primed/MXFMetadataPlusIndexPrimerCoder.h"
#include "metadata/primed/indexProperties.h"
#include "metadata/primed/privateKeys.h"
#include "metadata/sets/standardPrimer.h"
#include "support/MetadataRecorder.h"
#include "support/Testing.h"

namespace {

const KLVKey primerKey = smpteKey({2, 5, 1, 1, 0x0D, 1, 2, 1, 1, 5, 1});
const KLVKey keyC = smpteKey({1, 1, 1, 1, 0x0C});
const MXFPrimer twoRows = {{0x8001, keyA}, {0x8002, keyB}};

/// Byte 5 of a set key gives the widths of tags and lengths.
KLVKey setKey(int widths, int kind = 0x35) {
    return smpteKey({2, widths, 1, 1, 0x0D, 1, 1, 1, 1, 1, kind});
}
const KLVKey prefaceKey = setKey(0x53, 0x2F);

KLVBytes primerPack(const MXFPrimer& rows, int itemSize = 18, std::uint32_t extraCount = 0) {
    KLVBytes value;
    value.number(static_cast<std::uint32_t>(rows.size()) + extraCount, 4);
    value.number(static_cast<std::uint64_t>(itemSize), 4);
    for (const MXFPrimerEntry& row : rows) {
        value.number(row.tag, 2).key(row.key).counting(static_cast<std::size_t>(itemSize - 18));
    }
    return KLVBytes().klv(primerKey, value);
}

KLVBytes item(int tag, const Bytes& value) {
    return KLVBytes().number(static_cast<std::uint64_t>(tag), 2).number(value.size(), 2).raw(value);
}

KLVBytes itemSet(const KLVBytes& items, int form = 0x83) {
    return KLVBytes().klv(setKey(0x53), items, form);
}

struct Parsing {
    Recording recording;
    MetadataRecorder recorder{recording};
    KeepingErrorHandler errors{recording};
    MXFMetadataParser parser{recorder, metadata::standardPrimer()};

    Parsing() { parser.setErrorHandler(&errors); }
    /// The events and reports of a header metadata region, the failure in which they ended last.
    std::string eventsOf(const KLVBytes& bytes) {
        recording = Recording();
        GenericKLVReader reader(parser);
        TestStream in(bytes.bytes());
        const std::string failure = failureOf([&] { reader.parse(in); });
        return recording.text() + failure;
    }
};

/// What a coder writes of a primer and sets, the failure in which it ended last.
template <class Coder = MXFMetadataCoder>
std::string written(const MXFPrimer& primer, const std::vector<MXFPrimedSet>& sets = {}) {
    std::ostringstream out;
    GenericKLVWriter writer(out);
    Coder coder(writer);
    const std::string failure = failureOf([&] {
        coder.startMetadata();
        coder.primer(primer);
        std::for_each(sets.begin(), sets.end(), [&](const auto& set) { coder.primedSet(set); });
        coder.endMetadata();
    });
    return out.str() + failure;
}

MXFPrimedSet primedSet(const KLVKey& key, std::map<KLVKey, Bytes> properties) {
    return {key, std::move(properties), -1, {}};
}

/// Three items, private properties, and a hint at their order.
MXFPrimedSet hintedPreface(const std::vector<KLVKey>& order) {
    KLVBytes hint = KLVBytes().number(order.size(), 4).number(16, 4);
    for (const KLVKey& key : order) {
        hint.key(key);
    }
    return primedSet(prefaceKey, {{keyA, {1}},
                                  {keyB, {}},
                                  {keyC, {3, 3}},
                                  {metadata::primedSetOrderHintKey, {9}},
                                  {metadata::propertyOrderHintKey, hint.bytes()}});
}

} // namespace

TEST(MXFMetadataParser, TellsAndReports) {
    Recording standard;
    MetadataRecorder(standard).primer(metadata::standardPrimer().rows());
    const auto undecoded = [&](const std::string& why) {
        return "error 4C4C0301 invalid primer value - assertion failure: " + why + '\n' +
               standard.text();
    };
    const std::string textA = ", 06.0E.2B.34.01.01.01.01.0A.00.00.00.00.00.00.00 }\n";
    const std::string missing = "error 4C4C0402 tag missing in primer - ";
    const std::string repeated = "error 4C4C0401 unexpected repeated property - ";
    const std::string lengths = "warning 4C4C0007 non-standard local item length type - ";
    const std::string forms = "warning 4C4C0007 non-standard BER length form - ";
    const std::string set = "wants 35\nset 35 @";
    const std::string two = "primer 8001=0A 8002=0B\n";
    const KLVBytes pack = primerPack(twoRows); // 64 bytes
    const KLVBytes someSet = itemSet(item(0x8001, {1, 2}).raw(item(0x8002, {})));
    const struct {
        KLVBytes before, bytes;
        std::string expected;
    } rows[] = {
        // Tags of 1 octet, and a kind that isn't wanted.
        {KLVBytes().klv(setKey(0x43), Bytes(5)).raw(pack).klv(setKey(0x53, 0), Bytes(5)),
         KLVBytes(someSet).raw(primerPack({})).klv(someFixedPackKey, Bytes(9)),
         two + "wants 00\n" + set + "144 0A=0102 0B=\n"},
        {primerPack(twoRows, 20), someSet, two + set + "98 0A=0102 0B=\n"},
        {KLVBytes().klv(primerKey, KLVBytes().number(1, 4).number(17, 4).counting(17)),
         itemSet(item(0x8001, {8}).raw(item(0x3C0A, {7}))),
         undecoded("valid external length") + "wants 35\n" + missing +
             "80.01\nset 35 @75 01011502=07\n"},
        {primerPack(twoRows, 18, 0xFFFFFFFD), {}, undecoded("successful get()")},
        {primerPack(twoRows, 18, 0xFFFFFFFF), {}, undecoded("valid external length")},
        {primerPack({{0x3C0A, keyA}}), itemSet(item(0x3C0A, {7})),
         "error 4C4C0302 non-standard primer key - { 3c.0a" + textA + "primer 3C0A=0A\n" + set +
             "71 0A=07\n"},
        {primerPack({{0x8001, instanceKey}}),
         {},
         "warning 4C4C0303 non-standard primer tag - { 80.01, "
         "06.0E.2B.34.01.01.01.01.01.01.15.02.00.00.00.00 }\nprimer 8001=01011502\n"},
        {primerPack({{0, keyB}, {0, keyA}, {0, keyB}}), itemSet(item(0, {7})),
         "error 4C4C0304 inconsistent primer key - { 00.00" + textA +
             "primer 0000=0B 0000=0A 0000=0B\n" + set + "107 0B=07\n"},
        {primerPack({{9, keyA}, {8, keyA}}),
         itemSet(item(8, {7}).raw(item(9, {6})).raw(item(8, {5}))),
         "warning 4C4C0305 inconsistent primer tag - { 00.08" + textA +
             "primer 0009=0A 0008=0A\nwants 35\n" + repeated + "00.09\n" + repeated +
             "00.08\nset 35 @99 0A=07\n"},
        {pack, itemSet(item(0, {7}).raw(item(0x8001, {6})).raw(item(0x80, {5}))),
         two + "wants 35\n" + missing + "00.00\n" + missing + "00.80\nset 35 @99 0A=06\n"},
        {pack, itemSet({}, 1).raw(itemSet({}, 1)).raw(itemSet({}, 0x88)).raw(itemSet({})),
         two + forms + "0x01\n" + set + "81\n" + set + "98\n" + forms + "0x88\n" + set + "123\n" +
             set + "143\n"},
        {KLVBytes(pack).klv(setKey(0x33), Bytes{0x80, 1, 1, 7}),
         KLVBytes().klv(setKey(0x73), Bytes(6)).klv(setKey(0x13), Bytes{0x80, 1, 0x83, 0, 0, 1, 7}),
         two + lengths + "Fixed 1 byte\n" + set + "88 0A=07\n" + lengths +
             "Fixed 4 byte\nwants 35\n" + missing + "00.00\nset 35 @114\nwants 35\n" + lengths +
             "BER\nset 35 @141 0A=07\n"},
        {KLVBytes(pack).klv(
             setKey(0x13),
             KLVBytes({0, 1}).length(70000).raw(Bytes(70000)).raw({0, 1, 0x83, 0, 0, 1, 7})),
         KLVBytes().klv(setKey(0x13), Bytes{}),
         two + "wants 35\n" + missing + "00.01\n" + missing + "00.01\nset 35 @70097\nwants 35\n" +
             lengths + "BER\nset 35 @70117\n"},
    };
    Parsing parsing; // one parser for all: each start begins anew
    for (const auto& row : rows) {
        EXPECT_EQ("startMetadata\n" + row.expected + "endMetadata\n",
                  parsing.eventsOf(KLVBytes(row.before).raw(row.bytes)))
            << "row " << &row - rows;
    }

    const std::string cut = "endMetadata\n4C4A0001 unsuccessful read()";
    const KLVBytes longItem = KLVBytes().klv(setKey(0x53), Bytes{0x80, 1, 0xFF, 0xFF, 0xFF});
    const KLVBytes longPrimer = KLVBytes().key(primerKey).length(0x4000001, 0x88);
    EXPECT_EQ("startMetadata\nerror 4C4C0301 set before primer - "
              "06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01.35.00\nendMetadata\nbefore primed set",
              parsing.eventsOf(someSet));
    EXPECT_EQ("startMetadata\n" + two + "wants 35\n" + cut,
              parsing.eventsOf(KLVBytes(pack).raw(longItem)));
    EXPECT_EQ("startMetadata\n" + undecoded("successful get()") + cut,
              parsing.eventsOf(longPrimer));
}

TEST(MXFMetadataCoder, WritesItemsInOrderAndNothingPrivate) {
    const MXFPrimer rows = {{0x8003, keyC}, {0x8001, keyA}, {0x8002, keyB}, {0x8003, keyC}};
    const Bytes short127(127, 0x7F);
    const Bytes long128(128, 0x80);
    KLVBytes expected = primerPack(rows);
    expected.klv(prefaceKey, item(0x8003, {3, 3}).raw(item(0x8001, {1})).raw(item(0x8002, {})));
    KLVBytes berItems = KLVBytes({0x80, 1, 0x7F}).raw(short127); // short form
    berItems.raw({0x80, 2, 0x83, 0, 0, 0x80}).raw(long128).raw({0x80, 3, 0});
    expected.klv(setKey(0x13), berItems);
    expected.klv(setKey(0x73), Bytes{0x80, 1, 0, 0, 0, 1, 6}); // again in the long form
    EXPECT_EQ(
        expected.text(),
        written(rows, {hintedPreface({keyC, instanceKey, metadata::primedSetOrderHintKey}),
                       primedSet(setKey(0x13), {{keyA, short127}, {keyB, long128}, {keyC, {}}}),
                       primedSet(setKey(0x73), {{keyA, {6}}})}));

    const std::string pack = primerPack(rows).text();
    EXPECT_EQ("consistent primer tag -> key", written({{1, keyA}, {1, keyB}}));
    EXPECT_EQ("consistent primer key -> tag", written({{1, keyA}, {2, keyA}}));
    EXPECT_EQ(pack + "valid local set key", written(rows, {primedSet(setKey(0x55), {})}));
    EXPECT_EQ(pack + "supported tag type", written(rows, {primedSet(setKey(0x43), {})}));
    EXPECT_EQ(pack + KLVBytes().key(setKey(0x53)).length(5).text() + "valid property key",
              written(rows, {primedSet(setKey(0x53), {{instanceKey, {1}}})}));
    EXPECT_EQ(pack + KLVBytes().key(prefaceKey).length(15).text() +
                  "no repeated properties in order hint",
              written(rows, {hintedPreface({keyA, keyB, keyA})}));
}

TEST(MXFMetadataCoder, AlignsThePrefaceFromVersion13On) {
    const MXFPrimer rows = {{0x3B05, versionKey}, {0x8001, keyA}}; // a pack of 64 bytes
    const struct {
        Bytes version;
        std::size_t between; ///< bytes of the set between primer and Preface
        int fill;            ///< bytes of the fill item's value; -1 is none
    } cases[] = {
        {{1, 2}, 100, -1}, {{1, 3, 0}, 100, -1}, {{1, 3}, 100, 328}, {{1, 4}, 100, 328},
        {{1, 3}, 448, -1}, {{1, 3}, 449, 491},   {{1, 3}, 428, 0},
    };
    for (const auto& c : cases) {
        const Bytes value(c.between - 24); // the heads of set and item
        KLVBytes expected = primerPack(rows).raw(itemSet(item(0x8001, value)));
        expected.raw(c.fill < 0 ? KLVBytes() : KLVBytes().fill(static_cast<std::size_t>(c.fill)));
        const std::vector<MXFPrimedSet> sets = {primedSet(setKey(0x53), {{keyA, value}}),
                                                primedSet(prefaceKey, {{versionKey, c.version}})};
        EXPECT_EQ(expected.klv(prefaceKey, item(0x3B05, c.version)).text(), written(rows, sets))
            << "case " << &c - cases;
    }
}

TEST(MXFMetadataCoder, ExtendsThePrimer) {
    MXFPrimer index(std::begin(metadata::indexProperties::primerRows),
                    std::end(metadata::indexProperties::primerRows));
    MXFPrimer standard = metadata::standardPrimer().rows();
    EXPECT_EQ(primerPack(index).text(), written<MXFMetadataPlusIndexPrimerCoder>({}));
    const MXFPrimer given = {index[0], twoRows[0]};
    index.insert(index.begin() + 1, twoRows[0]);
    standard.insert(standard.end(), given.begin(), given.end());
    EXPECT_EQ(primerPack(index).text(), written<MXFMetadataPlusIndexPrimerCoder>(given));
    EXPECT_EQ(primerPack(standard).text(), written<MXFFormatMetadataCoder>(given));
}
