#include "gc/MXFGCIndexer.h"
#include "gc/MXFGCMuxer.h"
#include "gc/MXFGCSplitter.h"
#include "klv/GenericKLVWriter.h"
#include "klv/fillItem.h"
#include "mxf/MXFReader.h"
#include "support/Failures.h"
#include "support/FileBuilder.h"
#include "support/GCRecorder.h"
#include "support/TestStream.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Bytes = KLVBytes::Bytes;
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

struct RecordingIndexer : MXFGCIndexer {
    using MXFGCIndexer::MXFGCIndexer;
    std::vector<std::pair<std::uint64_t, std::vector<std::uint32_t>>> units;

    void indexEditUnit(std::uint64_t position, const std::vector<std::uint32_t>& offsets) override {
        units.emplace_back(position, offsets);
    }
};

TEST(MXFGCMuxer, WritesElementsWithTheirFillAndIndexesThem) {
    const Bytes bytes = {1, 2, 3};
    Written to;
    RecordingIndexer structure(to.structure, to.muxer.getLocator());
    structure.startStream(8);
    structure.startEditUnit();
    structure.startSlice();
    structure.startFixedElement(48);
    to.system.systemFixedLengthPack(systemKey(5), {1, 2});
    structure.endFixedElement();
    structure.startAlignedElement(16);
    to.essence.pictureElement(pictureKey, bytes.data(), 3);
    structure.endAlignedElement();
    structure.endSlice();
    structure.startSlice();
    structure.startAlignedElement(0);
    to.system.systemLocalSet(systemKey(0x53), {{0x0102, {7}}, {0x0304, {}}});
    structure.endAlignedElement();
    structure.endSlice();
    structure.endEditUnit();
    structure.startEditUnit();
    structure.startSlice();
    to.system.systemVariableLengthPack(systemKey(4), {{5}, {}});
    structure.endSlice();
    structure.endEditUnit();
    structure.endStream();
    KLVBytes expected = KLVBytes().klv(systemKey(5), KLVBytes{1, 2}).fill(6);
    expected.klv(pictureKey, KLVBytes{1, 2, 3}).fill(5);
    expected.klv(systemKey(0x53), KLVBytes{1, 2, 0, 1, 7, 3, 4, 0, 0}).fill(7);
    expected.klv(systemKey(4), KLVBytes{0x83, 0, 0, 1, 5, 0x83, 0, 0, 0});
    EXPECT_EQ(to.out.str(), expected.text());
    EXPECT_EQ(structure.units, (decltype(structure.units){{0, {96}}, {152, {}}}));
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
        {"correct chunked essence key", [&] { essence.dataElement(pictureKey, bytes.data(), 1); }},
        {"correct chunked length", [&] { sound(2); }},
        {"correct chunked length", [&] { end(soundKey); }},
        {"", [&] { sound(1), end(soundKey), start(UINT64_MAX), sound(2), end(soundKey); }},
        {"", [&] { sound(0), sound(0xFFFFFF), sound(0x1000000), start(0x1000000); }},
        {"", [&] { sound(0x1000000), end(soundKey), essence.essenceLengthForm(0x84), sound(1); }},
    });
    KLVBytes expected = KLVBytes().klv(soundKey, KLVBytes{0, 1, 2, 3, 0});
    expected.key(soundKey).length(0, 0x87).raw({0, 1}).klv(soundKey, KLVBytes());
    expected.klv(soundKey, KLVBytes().counting(0xFFFFFF)).klv(soundKey, bytes, 0x87);
    expected.klv(soundKey, bytes, 0x87).klv(soundKey, KLVBytes{0}, 0x84);
    EXPECT_TRUE(to.out.str() == expected.text());
    EXPECT_EQ(to.muxer.getLocator().getPosition(), std::streamoff(expected.size()));
}

/// What a handler makes of the bodies of a file.
void readBodies(const std::string& name, KLVHandler& handler) {
    TestStream in(withoutRunIn(testData(name)));
    MXFReader reader;
    reader.setEssenceHandler(&handler);
    failureOf([&] { reader.parse(in); }); // one of the files is cut
}

/// Everything comes back in its order, the lengths in their form, and only fill is left out.
TEST(MXFGCMuxer, JoinsWhatTheSplitterCut) {
    for (const std::string& name : testDataNames()) {
        std::ostringstream copied;
        GenericKLVWriter copy(copied);
        readBodies(name, copy);
        const std::string text = copied.str();
        std::string expected;
        for (const WalkedElement& element : walkKLV(Bytes(text.begin(), text.end()))) {
            if (element.key != klvutil::fillItemKey) {
                expected += text.substr(element.offset, element.end - element.offset);
            }
        }
        Written to;
        MXFGCSplitter splitter(&to.structure, &to.system, &to.essence);
        readBodies(name, splitter);
        EXPECT_GT(expected.size(), 50000U) << name;
        EXPECT_TRUE(to.out.str() == expected) << name;
    }
}

} // namespace
