#include "klv/KLVMonitor.h"
#include "mxf/MXFPartitionFilter.h"
#include "support/Testing.h"

namespace {

/// The events, and how the filter stood after them.
std::string filtered(const KLVBytes& bytes, std::streamoff stopAt, bool stop = false,
                     bool wanted = false, std::streamoff from = 0) {
    Recording recording;
    KLVRecorder handler(recording);
    MXFPartitionFilter filter(stopAt, &stop, handler);
    handler.want(wanted ? Wants::Everything : Wants::Nothing);
    TestStream in(bytes.bytes());
    in.seekg(from);
    GenericKLVReader(filter).parse(in, std::streampos(std::streamoff(-1)), stop);
    recording.add((stop ? "stopped at " : "ended at ") +
                  std::to_string(std::streamoff(filter.getPosition())) +
                  (filter.stoppedAtPartition() ? " by partition" : ""));
    return recording.text();
}

const KLVBytes pack = KLVBytes().klv(partitionKey(3, 4), partitionValue(MXFPartitionPack()));

} // namespace

// Two items of 30 bytes each, a random index, a body partition's pack.
TEST(MXFPartitionFilter, StopsBeforeAPartitionOrAPosition) {
    const KLVBytes bytes = KLVBytes(someItem(10))
                               .raw(someItem(10))
                               .raw(randomIndexPack({{1, 2}}))
                               .raw(pack)
                               .raw(someItem(10));
    const std::string first = "setLocator\nstartStream accurate @0\nform 83 @20\n"
                              "startIndividualItem 7E01 10 @20\nendIndividualItem 7E01 @30\n";
    const std::string second = "startIndividualItem 7E01 10 @50\nendIndividualItem 7E01 @60\n";
    const std::string third =
        "startFixedLengthPack random-index 16 @80\nendFixedLengthPack random-index @96\n";
    // The end of the stream is where the reader stands: behind the element that it skipped last.
    for (const int stopAt : {-1, 96, 1000}) {
        EXPECT_EQ(first + second + third + "endStream aborted @204\nstopped at 96 by partition\n",
                  filtered(bytes, stopAt));
    }
    // Before the element that begins at the position or behind it.
    EXPECT_EQ(first + "endStream aborted @60\nstopped at 30\n", filtered(bytes, 1));
    EXPECT_EQ(first + "endStream aborted @60\nstopped at 30\n", filtered(bytes, 30));
    EXPECT_EQ(first + second + "endStream aborted @96\nstopped at 60\n", filtered(bytes, 31));
    // At once, not even started; never.
    EXPECT_EQ("setLocator\nstopped at 0\n", filtered(bytes, -1, true));
    EXPECT_EQ("setLocator\nstopped at 30\n", filtered(bytes, 30, false, false, 30));
    EXPECT_EQ(first + "endStream @30\nended at 30\n", filtered(someItem(10), 30));
}

TEST(MXFPartitionFilter, FencesEveryFormOfElement) {
    for (const KLVKey& key : {someItemKey, someLabelKey, someUniversalSetKey, someLocalSetKey,
                              someVariablePackKey, someFixedPackKey, someWrapperKey}) {
        const KLVBytes element =
            key == someLabelKey ? KLVBytes().key(key) : KLVBytes().klv(key, KLVBytes({1}));
        Recording unfiltered;
        KLVRecorder handler(unfiltered);
        handler.want(Wants::Nothing);
        TestStream in(element.bytes());
        GenericKLVReader(handler).parse(in);
        const std::string events =
            unfiltered.text().substr(0, unfiltered.text().rfind("endStream"));
        const std::string end = std::to_string(element.size());
        EXPECT_EQ(events + "endStream aborted @" + std::to_string(2 * element.size()) +
                      "\nstopped at " + end + '\n',
                  filtered(KLVBytes(element).raw(element), static_cast<int>(element.size())));
    }
}

// What lies in a set that the handler wanted is the handler's own: packs, and positions.
TEST(MXFPartitionFilter, CutsNoUniversalSetApart) {
    const KLVBytes bytes =
        KLVBytes().klv(someUniversalSetKey, KLVBytes(pack).raw(someItem(0))).raw(pack);
    const std::string start = "setLocator\nstartStream accurate @0\nform 83 @20\n"
                              "startUniversalSet 7E03 128 @20\n";
    const std::string inner = "startFixedLengthPack partition 88 @40\n"
                              "value 88 00 01 00 02 @128\nendFixedLengthPack partition @128\n"
                              "startIndividualItem 7E01 0 @148\nendIndividualItem 7E01 @148\n";
    const std::string end =
        "endUniversalSet 7E03 @148\nendStream aborted @256\nstopped at 148 by partition\n";
    EXPECT_EQ(start + inner + end, filtered(bytes, 20, false, true));
    EXPECT_EQ(start + end, filtered(bytes, -1, false, false));
}
