#include "support/Recoding.h"
#include "support/Testing.h"

#include <boost/algorithm/string.hpp>

namespace {

const KLVKey segmentKey = smpteKey({2, 0x53, 1, 1, 0x0D, 1, 2, 1, 1, 0x10, 1});

struct SparingCoder : MXFIndexCoder {
    using MXFIndexCoder::MXFIndexCoder;
    bool codesAllProperties(const MXFIndexTableSegment&) override { return false; }
};

const std::vector<MXFDeltaEntry> deltas{{-1, 0, 0}, {1, 1, 0x10000}};
const std::vector<MXFIndexEntry> entries{{-1, -2, 0xC0, 0x100000000, {7}, {{-1, 2}}},
                                         {3, 0, 0, 5, {8}, {{}}}};
const MXFIndexTableSegment full{
    MXFUID{{{9}}}, MXFRational{25, 1}, -2, 2, 0, 129, 1, 1, 1, deltas, entries, true, false, true};

TEST(IndexSegments, AreCodedByteForByteAndParsedAgain) {
    KLVBytes value;
    value.raw({0x3C, 0x0A, 0, 16}).raw({9}).raw(Bytes(15));
    value.raw({0x3F, 0x0B, 0, 8, 0, 0, 0, 25, 0, 0, 0, 1});
    value.raw({0x3F, 0x0C, 0, 8}).number(UINT64_MAX - 1, 8).raw({0x3F, 0x0D, 0, 8}).number(2, 8);
    value.raw({0x3F, 5, 0, 4, 0, 0, 0, 0, 0x3F, 6, 0, 4, 0, 0, 0, 129, 0x3F, 7, 0, 4, 0, 0, 0, 1});
    value.raw({0x3F, 0x08, 0, 1, 1, 0x3F, 0x0E, 0, 1, 1}); // slice and pos table counts
    value.raw({0x3F, 0x09, 0, 20, 0, 0, 0, 2, 0, 0, 0, 6});
    value.raw({0xFF, 0, 0, 0, 0, 0, 1, 1, 0, 1, 0, 0});
    value.raw({0x3F, 0x0A, 0, 54, 0, 0, 0, 2, 0, 0, 0, 23});
    value.raw({0xFF, 0xFE, 0xC0, 0, 0, 0, 1, 0, 0, 0, 0}); // offsets, flags, stream offset
    value.raw({0, 0, 0, 7, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 2});
    value.raw({3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}).raw({0, 0, 0, 8}).number(0, 8);
    value.raw({0x3F, 0x11, 0, 1, 1, 0x3F, 0x12, 0, 1, 0, 0x3F, 0x13, 0, 1, 1});
    Bytes set = KLVBytes().klv(segmentKey, value).bytes();
    EXPECT_EQ(SegmentCoding().code({full}), set);

    set[KLVKey::versionByte] = 2;
    KeepingErrorHandler errors;
    EXPECT_EQ(parseSegments(set, &errors), Segments{full});
    EXPECT_EQ(errors.text(), "");
}

TEST(IndexSegments, OfRealFilesAreCodedAgainToTheSameRecords) {
    Recording recording;
    EventRecorder keeper(recording);
    MXFIndexParser parser(keeper);
    KeepingErrorHandler errors;
    parser.setErrorHandler(&errors);
    for (const std::string& name : testDataNames()) {
        MXFReader reader;
        reader.setIndexHandler(&parser);
        TestStream stream(testData(name));
        failureOf([&] { reader.parse(stream); }); // one file is cut short
    }
    EXPECT_EQ(keeper.segments.size(), 8U);
    EXPECT_EQ(parseSegments(SegmentCoding().code(keeper.segments)), keeper.segments);
    EXPECT_EQ(errors.text(), "");
}

TEST(MXFIndexCoder, LeavesOutWhatSaysNothingAndMakesAnIdentifierEachTime) {
    const auto tagsOf = [](const Bytes& set) {
        std::ostringstream tags;
        for (std::size_t at = 20; at < set.size(); at += 4 + numberAt(set, at + 2, 2)) {
            tags << std::hex << numberAt(set, at, 2) << ' ';
        }
        return tags.str();
    };
    const MXFIndexTableSegment empty;
    MXFIndexTableSegment all = full;
    all.editUnitByteCount = 1;
    EXPECT_EQ(tagsOf(SegmentCoding().code({empty})),
              "3c0a 3f0b 3f0c 3f0d 3f05 3f06 3f07 3f08 3f0a ");
    EXPECT_EQ(tagsOf(SegmentCoding<SparingCoder>().code({empty})), "3c0a 3f0b 3f0c 3f0d 3f07 ");
    EXPECT_EQ(SegmentCoding<SparingCoder>().code({all}), SegmentCoding().code({all}));
    const Segments coded = parseSegments(SegmentCoding().code({empty, empty}));
    EXPECT_NE(coded.at(0).instanceUID, coded.at(1).instanceUID);
    EXPECT_EQ(coded[0].instanceUID[6] & 0xF0, 0x40); // a random UUID
    EXPECT_EQ(coded[0].instanceUID[8] & 0xC0, 0x80);
}

TEST(MXFIndexCoder, AlignsEachSegmentFromWhereItsRegionBegan) {
    const Bytes set = SegmentCoding().code({full});
    const KLVBytes region = KLVBytes().raw(set).fill(512 - set.size() - 20).raw(set);
    SegmentCoding output;
    output.code({full, full});
    EXPECT_EQ(output.text.str(), region.text());
    output.coder.setKAGSize(0);
    output.code({full, full});
    EXPECT_EQ(output.text.str(), region.text() + KLVBytes().raw(set).raw(set).text());
}

TEST(MXFIndexCoder, ChecksTheOrderAndItsEntries) {
    SegmentCoding output;
    MXFIndexTableSegment segment = full;
    const auto send = [&] { return failureOf([&] { output.coder.indexTableSegment(segment); }); };
    EXPECT_EQ(send(), "before index table segment");
    output.coder.startIndexTable();
    EXPECT_EQ(failureOf([&] { output.coder.startIndexTable(); }), "before start");
    segment.indexEntryArray[1].sliceOffsets.clear();
    EXPECT_EQ(send(), "valid entry externalize()");
    segment.indexEntryArray[1] = {0, 0, 0, 0, {7, 8, 9}, {}}; // of the same size
    EXPECT_EQ(send(), "valid sliceOffsets");
    segment.indexEntryArray.assign(1, {0, 0, 0, 0, {7}, {}});
    EXPECT_EQ(send(), "valid posTables");
    segment.sliceCount = segment.posTableCount = 0;
    segment.indexEntryArray.assign(5957, MXFIndexEntry()); // 65,535 bytes with their counts
    EXPECT_EQ(send(), "");
    segment.indexEntryArray.emplace_back();
    EXPECT_EQ(send(), "enough octets");
}

/// By tag. An empty one is left out.
using Items = std::map<unsigned, KLVBytes>;

Bytes segmentOf(Items items) {
    items.insert({{0x3C0A, KLVBytes().counting(16)},
                  {0x3F0B, KLVBytes().counting(8)},
                  {0x3F0C, KLVBytes().number(0, 8)},
                  {0x3F0D, KLVBytes().number(2, 8)},
                  {0x3F07, KLVBytes().counting(4)},
                  {0x3F0A, batch(2, 11, 22)}});
    KLVBytes set;
    for (const auto& [tag, item] : items) {
        if (item.size() != 0) {
            set.number(tag, 2).number(item.size(), 2).raw(item);
        }
    }
    return KLVBytes().klv(segmentKey, set).bytes();
}

/// The numbers of delta and index entries that are told, and the reports without what is the same
/// in all of a kind.
std::string outcome(const Bytes& set) {
    KeepingErrorHandler errors;
    const Segments segments = parseSegments(set, &errors);
    std::string text = errors.text();
    boost::replace_all(text, "error 4C4C0403 missing", "missing");
    boost::replace_all(text, "error 4C4C0404 invalid", "invalid");
    boost::replace_all(text, "warning 4C4C0008 inconsistent", "inconsistent");
    boost::erase_all(text, " value - assertion failure");
    boost::replace_all(text, "\n", "; ");
    return std::to_string(segments.at(0).deltaEntryArray.size()) + ' ' +
           std::to_string(segments[0].indexEntryArray.size()) + ' ' + text;
}

TEST(MXFIndexParser, ReportsWhatIsWrongAndGoesOn) {
    const KLVBytes zero(KLVBytes().number(0, 8)), one(KLVBytes().number(1, 8));
    const KLVBytes unitSize{0, 0, 0, 9};
    const std::pair<Items, std::string> cases[] = {
        {{{0x3C0A, {}}, {0x3F0B, {}}, {0x3F0C, {}}, {0x3F0D, {}}, {0x3F07, {}}},
         "0 2 missing instanceUID; missing indexEditRate; missing indexStartPosition; missing "
         "indexDuration; missing bodySID; inconsistent indexDuration and editUnitByteCount; "
         "inconsistent indexDuration and indexEntryArray; "},
        {{{0x3F05, unitSize}, {0x3F0A, {}}, {0x3F0D, zero}}, "0 0 "},
        {{{0x3F05, unitSize}, {0x3F0C, KLVBytes().number(INT64_MAX, 8)}},
         "0 2 inconsistent editUnitByteCount and indexStartPosition; inconsistent "
         "editUnitByteCount and indexEntryArray; "},
        {{{0x3F0A, {}}, {0x3F0D, zero}},
         "0 0 inconsistent indexDuration and editUnitByteCount; inconsistent editUnitByteCount "
         "and indexEntryArray; "},
        {{{0x3F0F, zero}, {0x3F07, KLVBytes{1}}, {0x3F09, batch(2, 6, 13)}, {0x3F11, zero}},
         "2 2 error 4C4C0402 tag missing in primer - 3f.0f; invalid bodySID: valid external "
         "length; invalid deltaEntryArray: valid external length; invalid singleIndexLocation: "
         "valid external length; "},
        {{{0x3F0A, batch(2, 20, 49)}}, "0 2 "},
        {{{0x3F0D, KLVBytes().number(3, 8)}},
         "0 2 inconsistent indexDuration and indexEntryArray; "},
        {{{0x3F05, unitSize}, {0x3F0A, batch(1, 10, 10)}},
         "0 0 invalid indexEntryArray: valid external length; "},
        // What is whole stays.
        {{{0x3F0A, batch(2, UINT32_MAX, 50)}, {0x3F0D, one}},
         "0 1 invalid indexEntryArray: successful seekg(); "},
        {{{0x3F0A, batch(UINT32_MAX, 11, 30)}}, "0 2 invalid indexEntryArray: successful get(); "},
        {{{0x3F08, KLVBytes{255}}, {0x3F0A, batch(2, 1031, 2000)}, {0x3F0D, one}},
         "0 1 invalid indexEntryArray: successful get(); "},
    };
    for (const auto& [changes, expected] : cases) {
        EXPECT_EQ(outcome(segmentOf(changes)), expected);
    }
}

TEST(MXFIndexParser, KeepsWhatANumberThatIsTooLongBeginsWith) {
    const Segments segments = parseSegments(segmentOf({{0x3F05, KLVBytes{1, 2, 3}},
                                                       {0x3F06, KLVBytes{0, 0, 1, 2, 3}},
                                                       {0x3F0B, KLVBytes().counting(9, 1)},
                                                       {0x3F11, KLVBytes{0, 1}}}));
    EXPECT_EQ(segments.at(0).editUnitByteCount, 0U); // too short
    EXPECT_EQ(segments[0].indexSID, 0x0102U);
    EXPECT_EQ(segments[0].indexEditRate, (MXFRational{0x01020304, 0x05060708}));
    EXPECT_TRUE(segments[0].singleIndexLocation == false);
}

} // namespace
