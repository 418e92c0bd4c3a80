#include "klv/GenericKLVReader.h"
#include "klv/KLVMonitor.h"
#include "mxf/MXFPartitionFilter.h"
#include "support/Failures.h"
#include "support/FileBuilder.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <gtest/gtest.h>

namespace {

/// The events, and how the filter stood after them.
std::string filtered(const KLVBytes& bytes, std::streamoff stopAt, bool stop = false,
                     bool wanted = false) {
    Recording recording;
    KLVRecorder handler(recording);
    MXFPartitionFilter filter(stopAt, &stop, handler);
    handler.setWanted(wanted);
    TestStream in(bytes.bytes());
    GenericKLVReader(filter).parse(in, std::streampos(std::streamoff(-1)), stop);
    recording.add((stop ? "stopped at " : "ended at ") +
                  std::to_string(std::streamoff(filter.getPosition())) +
                  (filter.stoppedAtPartition() ? " by partition" : ""));
    return recording.text();
}

} // namespace

// Two items of 30 bytes each, a random index, a body partition's pack.
TEST(MXFPartitionFilter, StopsBeforeAPartitionOrAPosition) {
    const KLVBytes bytes = KLVBytes(someItem(10))
                               .raw(someItem(10))
                               .raw(randomIndexPack({{1, 2}}))
                               .klv(partitionKey(3, 4), partitionValue(MXFPartitionPack()))
                               .raw(someItem(10));
    const std::string start = "setLocator\nstartStream accurate @0\nform 83 @20\n";
    const std::string first = "startIndividualItem 7E01 10 @20\nendIndividualItem 7E01 @30\n";
    const std::string second = "startIndividualItem 7E01 10 @50\nendIndividualItem 7E01 @60\n";
    const std::string third =
        "startFixedLengthPack random-index 16 @80\nendFixedLengthPack random-index @96\n";

    // The end of the stream is where the reader stands: behind the element that it skipped last.
    EXPECT_EQ(start + first + second + third +
                  "endStream aborted @204\nstopped at 96 by partition\n",
              filtered(bytes, -1));
    EXPECT_EQ(start + first + second + third +
                  "endStream aborted @204\nstopped at 96 by partition\n",
              filtered(bytes, 1000));
    // Before the element that begins at the position or behind it.
    EXPECT_EQ(start + first + "endStream aborted @60\nstopped at 30\n", filtered(bytes, 30));
    EXPECT_EQ(start + first + "endStream aborted @60\nstopped at 30\n", filtered(bytes, 1));
    EXPECT_EQ(start + first + second + "endStream aborted @96\nstopped at 60\n",
              filtered(bytes, 31));
    // Both at once.
    EXPECT_EQ(start + first + second + third +
                  "endStream aborted @204\nstopped at 96 by partition\n",
              filtered(bytes, 96));
    // At once: not even started.
    EXPECT_EQ("setLocator\nstopped at 0\n", filtered(bytes, 0));
    EXPECT_EQ("setLocator\nstopped at 0\n", filtered(bytes, -1, true));
    // Never.
    EXPECT_EQ(start + first + "endStream @30\nended at 30\n", filtered(someItem(10), -1));
    EXPECT_EQ(start + first + "endStream @30\nended at 30\n", filtered(someItem(10), 30));
}

TEST(MXFPartitionFilter, FencesEveryFormOfElement) {
    const struct {
        KLVBytes element;
        const char* name;
        const char* detail;
    } rows[] = {
        {KLVBytes().klv(someItemKey, KLVBytes({1})), "IndividualItem 7E01", " 1"},
        {KLVBytes().key(someLabelKey), "Label 7E02", ""},
        {KLVBytes().klv(someUniversalSetKey, KLVBytes({1})), "UniversalSet 7E03", " 1"},
        {KLVBytes().klv(someLocalSetKey, KLVBytes({1})), "LocalSet 7E04", " 1 tag 1 length 2"},
        {KLVBytes().klv(someVariablePackKey, KLVBytes({1})), "VariableLengthPack 7E05",
         " 1 length 0"},
        {KLVBytes().klv(someFixedPackKey, KLVBytes({1})), "FixedLengthPack 7E06", " 1"},
        {KLVBytes().klv(someWrapperKey, KLVBytes({1})), "Wrapper 7E07", " 1 simple"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::size_t size = row.element.size();
        const std::string end = std::to_string(size);
        const std::string place = " @" + std::to_string(size == 16 ? 16 : 20) + '\n';
        const std::string form = size == 16 ? "" : "form 83 @20\n";
        const std::string element = "start" + std::string(row.name) + row.detail + place + "end" +
                                    row.name + " @" + end + '\n';
        EXPECT_EQ("setLocator\nstartStream accurate @0\n" + form + element + "endStream aborted @" +
                      std::to_string(2 * size) + "\nstopped at " + end + '\n',
                  filtered(KLVBytes(row.element).raw(row.element), static_cast<int>(size)));
    }
}

// What lies in a set that the handler wanted is the handler's own: packs, and positions.
TEST(MXFPartitionFilter, CutsNoUniversalSetApart) {
    const KLVBytes pack = KLVBytes().klv(partitionKey(3, 4), partitionValue(MXFPartitionPack()));
    const KLVBytes bytes =
        KLVBytes().klv(someUniversalSetKey, KLVBytes(pack).raw(someItem(0))).raw(pack);
    const std::string start = "setLocator\nstartStream accurate @0\nform 83 @20\n"
                              "startUniversalSet 7E03 128 @20\n";
    const std::string inner = "startFixedLengthPack partition 88 @40\n"
                              "value 88 00 01 00 02 @128\n"
                              "endFixedLengthPack partition @128\n"
                              "startIndividualItem 7E01 0 @148\n"
                              "endIndividualItem 7E01 @148\n";
    const std::string end = "endUniversalSet 7E03 @148\nendStream aborted @256\nstopped at 148";
    EXPECT_EQ(start + inner + end + " by partition\n", filtered(bytes, -1, false, true));
    EXPECT_EQ(start + inner + end + " by partition\n", filtered(bytes, 20, false, true));
    EXPECT_EQ(start + end + " by partition\n", filtered(bytes, -1, false, false));
}

TEST(MXFPartitionFilter, NeedsALocatorAndAccurateLengths) {
    const auto failure = [](const Locator* locator, bool accurateLengths) {
        bool stop = false;
        DullKLVHandler next;
        MXFPartitionFilter filter(std::streamoff(-1), &stop, next);
        filter.setLocator(locator);
        return failureOf([&] { filter.startStream(accurateLengths); });
    };
    KLVMonitor::MonitoredLocator locator;
    EXPECT_EQ("has locator", failure(nullptr, true));
    EXPECT_EQ("has accurate lengths", failure(&locator, false));
    EXPECT_EQ("", failure(&locator, true));
}
