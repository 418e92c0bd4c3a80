#include "klv/KLVMonitor.h"
#include "klv/KLVTeller.h"
#include "klv/RecordedParse.h"
#include "support/Testing.h"

namespace {

TEST(KLVMonitor, CountsWhatEventsImplyWithoutAStream) {
    DullKLVHandler handler;
    KLVMonitor monitor(handler);
    const auto expectAt = [&](int position) {
        EXPECT_EQ(monitor.getLocator().getPosition(), std::streampos(position));
    };
    monitor.startStream(true);
    monitor.berLengthForm(0x83);
    monitor.startLocalSet(berLocalSetKey, 100, 1, 0);
    monitor.startLocalItem(1, 0, nullptr);
    expectAt(26);
    // Item lengths in BER form follow the form, until the set or pack ends.
    monitor.endLocalSet(berLocalSetKey);
    monitor.berLengthForm(0x88);
    monitor.startLocalItem(1, 0, nullptr);
    expectAt(32);
    monitor.startVariableLengthPack(someVariablePackKey, 100, 0);
    monitor.endVariableLengthPack(someVariablePackKey);
    monitor.berLengthForm(1);
    monitor.startVariableLengthItem(0, nullptr);
    expectAt(166);
    // What is still due is counted when the stream ends, and the next stream goes on from there.
    monitor.resetPosition();
    monitor.startIndividualItem(someItemKey, 7, nullptr);
    expectAt(17);
    monitor.endStream(true);
    monitor.startStream(true);
    monitor.endIndividualItem(someItemKey);
    expectAt(24);
}

TEST(KLVTeller, TellsThePositionAtTheEndAndNoneWhereTheStreamFailed) {
    DullKLVHandler handler;
    TestStream in(Bytes(5));
    KLVTeller teller(in, handler);
    in.ignore(6);
    in.clear(std::ios_base::eofbit);
    teller.endLabel(someLabelKey);
    EXPECT_EQ(teller.getLocator().getPosition(), std::streampos(5));
    EXPECT_EQ(in.rdstate(), std::ios_base::eofbit);
    in.clear(std::ios_base::badbit);
    teller.endLabel(someLabelKey);
    EXPECT_EQ(teller.getLocator().getPosition(), std::streampos(-1));
    EXPECT_EQ(in.rdstate(), std::ios_base::badbit | std::ios_base::failbit);
}

} // namespace
