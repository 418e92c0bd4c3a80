#include "gc/GCEvents.h"
#include "gc/MXFGCIndexer.h"
#include "gc/MXFGCMuxer.h"
#include "gc/MXFGCSplitter.h"
#include "klv/fillItem.h"
#include "support/AllocationCount.h"
#include "support/Testing.h"
#include "util/quietly.h"

namespace {

const KLVKey pictureKey = essenceKey(0x15);
const KLVKey soundKey = essenceKey(0x16);

struct Written {
    std::ostringstream out;
    GenericKLVWriter writer{out};
    MXFGCMuxer muxer{writer};
    MXFGCStructureHandler& structure = muxer.getStructureHandler();
    MXFGCSystemHandler& system = muxer.getSystemHandler();
    MXFGCEssenceCoder& essence = muxer.getEssenceHandler();
};

/// Adds a line such as `index0+96` for an edit unit at 0 with a second slice.
struct RecordingIndexer : MXFGCIndexer {
    Recording& recording;

    RecordingIndexer(GCRecorder& next, const Locator& locator)
        : MXFGCIndexer(next, locator), recording(next) {}
    void indexEditUnit(std::uint64_t position, const std::vector<std::uint32_t>& offsets) override {
        std::string line = "index" + std::to_string(position);
        for (const std::uint32_t offset : offsets) {
            line += '+' + std::to_string(offset);
        }
        recording.add(line);
    }
};

TEST(MXFGCIndexer, PassesEventsOnAndThenIndexes) {
    GCRecorder to;
    KLVMonitor::MonitoredLocator locator;
    RecordingIndexer indexer(to, locator);
    locator.add(7);
    indexer.startStream(8), indexer.startEditUnit(), indexer.startSlice();
    indexer.startFixedElement(3), indexer.endFixedElement();
    indexer.startAlignedElement(4), indexer.endAlignedElement(), indexer.endSlice();
    locator.add(UINT32_MAX);
    indexer.startSlice(), indexer.endSlice();
    locator.add(1);
    EXPECT_EQ(failureOf([&] { indexer.startSlice(); }), "valid slice offset");
    indexer.endEditUnit(), indexer.startEditUnit(), indexer.startSlice();
    indexer.endSlice(), indexer.endEditUnit(), indexer.endStream();
    EXPECT_EQ(to.words(), "{8 [ ( startFixedElement 3 endFixedElement startAlignedElement 4 "
                          "endAlignedElement ) ( ) ] index7+4294967295 [ ( ) ] index4294967303 } ");
}

TEST(MXFGCMuxer, WritesElementsWithTheirFill) {
    const Bytes bytes = {1, 2, 3};
    Written to;
    to.structure.startStream(8);
    to.structure.startFixedElement(48);
    to.system.systemFixedLengthPack(systemKey(5), {1, 2});
    to.structure.endFixedElement();
    to.structure.startAlignedElement(16);
    to.essence.pictureElement(pictureKey, bytes.data(), 3);
    to.structure.endAlignedElement();
    to.structure.startAlignedElement(0);
    to.system.systemLocalSet(systemKey(0x53), {{0x0102, {7}}, {0x0304, {}}});
    to.structure.endAlignedElement();
    to.system.systemVariableLengthPack(systemKey(4), {{5}, {}});
    KLVBytes expected = KLVBytes().klv(systemKey(5), KLVBytes{1, 2}).fill(6);
    expected.klv(pictureKey, KLVBytes{1, 2, 3}).fill(5);
    expected.klv(systemKey(0x53), KLVBytes{1, 2, 0, 1, 7, 3, 4, 0, 0}).fill(7);
    expected.klv(systemKey(4), KLVBytes{0x83, 0, 0, 1, 5, 0x83, 0, 0, 0});
    EXPECT_EQ(to.out.str(), expected.text());
}

TEST(MXFGCMuxer, WritesElementsWholeAndInPieces) {
    const Bytes bytes = KLVBytes().counting(0x1000000).bytes();
    Written to;
    MXFGCEssenceCoder& essence = to.essence;
    const auto start = [&](std::uint64_t size) { essence.wantsChunkedEssence(soundKey, size); };
    const auto sound = [&](std::size_t size) {
        essence.soundElement(soundKey, bytes.data(), size);
    };
    const auto end = [&](const KLVKey& key) { essence.endChunkedEssence(key); };
    to.structure.startStream(8);
    expectFailures({
        {"alignment is multiple of KAG size", [&] { to.structure.startAlignedElement(12); }},
        {"has essence data", [&] { essence.dataElement(soundKey, nullptr, 1); }},
        {"in chunked essence", [&] { end(soundKey); }},
        {"", [&] { start(5), sound(4); }},
        {"not in chunked essence", [&] { start(1); }},
        {"in chunked essence", [&] { end(pictureKey); }},
        {"correct chunked essence key", [&] { essence.dataElement(pictureKey, bytes.data(), 1); }},
        {"correct chunked length", [&] { sound(2); }},
        {"correct chunked length", [&] { end(soundKey); }},
        {"", [&] { sound(1), end(soundKey), start(UINT64_MAX), sound(2), end(soundKey); }},
        {"", [&] { sound(0), sound(0xFFFFFF), sound(0x1000000), start(0x1000000); }},
        {"", [&] { sound(0x1000000), end(soundKey), essence.essenceLengthForm(0x84), sound(1); }},
        {"", [&] { essence.essenceLengthForm(0x80), sound(2); }},
    });
    KLVBytes expected = KLVBytes().klv(soundKey, KLVBytes{0, 1, 2, 3, 0});
    expected.key(soundKey).length(0, 0x87).raw({0, 1}).klv(soundKey, KLVBytes());
    expected.klv(soundKey, KLVBytes().counting(0xFFFFFF)).klv(soundKey, bytes, 0x87);
    expected.klv(soundKey, bytes, 0x87).klv(soundKey, KLVBytes{0}, 0x84);
    expected.klv(soundKey, KLVBytes{0, 1});
    EXPECT_TRUE(to.out.str() == expected.text());
    EXPECT_EQ(to.muxer.getLocator().getPosition(), std::streamoff(expected.size()));
    essence.essenceLengthForm(0x83);
    EXPECT_EQ(failureOf([&] { sound(0x1000000); }), "enough subsequent octets");
}

TEST(MXFGCMuxer, TellsEveryEventAndBeginsAStreamAfresh) {
    const Bytes bytes = {1, 2, 3};
    Recording recording;
    KLVRecorder next(recording);
    MXFGCMuxer muxer(next);
    MXFGCStructureHandler& structure = muxer.getStructureHandler();
    MXFGCEssenceCoder& essence = muxer.getEssenceHandler();
    structure.startStream(0), structure.startAlignedElement(0);
    essence.essenceLengthForm(0x87), essence.wantsChunkedEssence(soundKey, 3);
    essence.soundElement(soundKey, bytes.data(), 3), essence.endChunkedEssence(soundKey);
    structure.endAlignedElement(), structure.startAlignedElement(64);
    muxer.getSystemHandler().systemLocalSet(systemKey(0x53), {});
    structure.endAlignedElement(), structure.startFixedElement(50);
    essence.wantsChunkedEssence(soundKey, 3);
    structure.endStream(), structure.startStream(8); // both are open
    const auto fixed = [&] { structure.startFixedElement(50); };
    EXPECT_EQ(failureOf(fixed), "padded length is multiple of alignment");
    structure.startFixedElement(96);
    essence.soundElement(soundKey, bytes.data(), 3);
    muxer.getSystemHandler().systemVariableLengthPack(systemKey(4), {});
    structure.endFixedElement();
    next.want(Wants::Nothing);
    EXPECT_EQ(failureOf([&] { essence.wantsChunkedEssence(soundKey, 3); }), "wants essence");
    EXPECT_EQ(
        recording.text(),
        "setLocator\nstartStream accurate @0\nform 83 @0\nform 87 @0\n"
        "startIndividualItem 0D01 3 @24\nvalue 3 01 02 03 @27\nendIndividualItem 0D01 @27\n"
        "form 83 @27\nstartLocalSet 0D01 0 tag 1 length 2 @47\nendLocalSet 0D01 @47\n"
        "form 83 @47\nstartIndividualItem fill 24 @67\nvalue 24 00 00 00 00 @91\n"
        "endIndividualItem fill @91\nform 87 @91\nstartIndividualItem 0D01 3 @115\n"
        "endStream @115\nsetLocator\nstartStream accurate @115\nform 83 @115\n"
        "form 87 @115\nstartIndividualItem 0D01 3 @139\nvalue 3 01 02 03 @142\n"
        "endIndividualItem 0D01 @142\nform 83 @142\nstartVariableLengthPack 0D01 0 length 0 @162\n"
        "endVariableLengthPack 0D01 @162\nform 83 @162\nstartIndividualItem fill 29 @182\n"
        "value 29 00 00 00 00 @211\nendIndividualItem fill @211\nform 87 @211\n"
        "startIndividualItem 0D01 3 @235\n");
}

/// Fails at one of its events; an end of the stream is passed on before.
class FailingFilter : public KLVForwarding<FailingFilter, DullKLVFilter> {
public:
    using KLVForwarding::KLVForwarding;

    int untilFailure = -1;

    void endStream(bool aborted) override {
        DullKLVFilter::endStream(aborted);
        fail();
    }

private:
    friend KLVForwarding<FailingFilter, DullKLVFilter>;
    template <class Call> auto pass(Call call) {
        fail();
        return call(getHandler());
    }
    void fail() {
        if (untilFailure-- == 0) {
            throw std::domain_error("failing");
        }
    }
};

/// Ended if it began, as whoever owns the muxer would.
void writeStream(MXFGCMuxer& to) {
    const Bytes bytes = {1, 2, 3};
    MXFGCStructureHandler& structure = to.getStructureHandler();
    structure.startStream(8);
    try {
        structure.startFixedElement(80);
        to.getSystemHandler().systemFixedLengthPack(systemKey(5), {1, 2});
        to.getSystemHandler().systemLocalSet(systemKey(0x53), {{7, {8}}});
        structure.endFixedElement();
        structure.startAlignedElement(16);
        to.getEssenceHandler().wantsChunkedEssence(soundKey, 3);
        to.getEssenceHandler().soundElement(soundKey, bytes.data(), 3);
        to.getEssenceHandler().endChunkedEssence(soundKey);
        to.getEssenceHandler().pictureElement(pictureKey, bytes.data(), 3);
        structure.endAlignedElement();
    } catch (...) {
        util::quietly([&] { structure.endStream(); });
        throw;
    }
    structure.endStream();
}

/// Wherever one stream failed, the next is written as if there had been none.
TEST(MXFGCMuxer, WritesAStreamBehindOneThatFailed) {
    const auto write = [](int untilFailure) {
        std::ostringstream out;
        GenericKLVWriter writer(out);
        FailingFilter filter(writer);
        MXFGCMuxer muxer(filter);
        filter.untilFailure = untilFailure;
        const std::string failure = failureOf([&] { writeStream(muxer); });
        const std::string first = out.str();
        out.str("");
        filter.untilFailure = -1;
        writeStream(muxer);
        return std::tuple(failure, first, out.str());
    };
    const std::string whole = std::get<2>(write(-1));
    int events = 0;
    for (bool failed = true; failed; ++events) {
        SCOPED_TRACE(events);
        const auto& [failure, first, second] = write(events);
        failed = failure == "failing";
        EXPECT_EQ(failure, failed ? "failing" : "");
        EXPECT_EQ(first, whole.substr(0, first.size()));
        EXPECT_EQ(second, whole);
    }
    EXPECT_GT(events, 20);
}

/// What a handler makes of the bodies of a file.
void readBodies(std::istream& in, KLVHandler& handler) {
    MXFReader reader;
    reader.setEssenceHandler(&handler);
    failureOf([&] { reader.parse(in); }); // one of the files is cut
}

/// Everything comes back in its order, the lengths in their form, and only fill is left out.
TEST(MXFGCMuxer, JoinsWhatTheSplitterCut) {
    for (const std::string& name : testDataNames()) {
        const Bytes file = withoutRunIn(testData(name));
        TestStream in(file), inAgain(file);
        std::ostringstream copied;
        GenericKLVWriter copy(copied);
        readBodies(in, copy);
        const std::string text = copied.str();
        std::string expected;
        for (const WalkedElement& element : walkKLV(Bytes(text.begin(), text.end()))) {
            if (element.key != klvutil::fillItemKey) {
                expected += text.substr(element.offset, element.end - element.offset);
            }
        }
        Written to;
        MXFGCSplitter splitter(&to.structure, &to.system, &to.essence);
        readBodies(inAgain, splitter);
        EXPECT_GT(expected.size(), 50000U) << name;
        EXPECT_TRUE(to.out.str() == expected) << name;
    }
}

/// From a stream through all readers and filters into a writer.
TEST(MXFGCMuxer, AllocatesNothingForAnElementOnTheWholeRoad) {
    struct NullBuffer : std::streambuf {
        int_type overflow(int_type c) override { return traits_type::not_eof(c); }
        std::streamsize xsputn(const char*, std::streamsize size) override { return size; }
    } nowhere;
    std::ostream out(&nowhere);
    KLVBytes contents = KLVBytes().klv(pictureKey, Bytes(100)).klv(soundKey, Bytes(9)).fill(5);
    contents.klv(systemKey(5), KLVBytes{1}).klv(systemKey(0x53), KLVBytes{1, 2, 0, 1, 7});
    contents.klv(systemKey(4), KLVBytes{1, 7});
    KLVBytes others = KLVBytes(contents).key(someLabelKey).klv(someUniversalSetKey, someItem(3));
    others.klv(someWrapperKey, KLVBytes{1});
    const auto allocations = [&](int times, bool seekable, bool essence) {
        FileBuilder file = soundFile();
        for (int i = 0; i < times; ++i) {
            file.partitions[1].body.raw(essence ? contents : others);
        }
        TestStream in(file.layOut().bytes().bytes(), {seekable});
        GenericKLVWriter writer(out);
        MXFGCMuxer to(writer);
        MXFGCSplitter splitter(&to.getStructureHandler(), &to.getSystemHandler(),
                               &to.getEssenceHandler());
        const std::uint64_t before = allocationCount();
        readBodies(in, essence ? static_cast<KLVHandler&>(splitter) : writer);
        return allocationCount() - before;
    };
    for (const bool seekable : {true, false}) {
        for (const bool essence : {true, false}) {
            EXPECT_EQ(allocations(300, seekable, essence), allocations(3, seekable, essence));
        }
    }
    EXPECT_GT(allocationCount(), 0U); // it does count
}

} // namespace
