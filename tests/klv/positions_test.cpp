#include "klv/ActionKLVFilter.h"
#include "klv/KLVForwarder.h"
#include "klv/KLVMonitor.h"
#include "klv/KLVTeller.h"
#include "klv/RecordedParse.h"
#include "klv/everyForm.h"

#include <gtest/gtest.h>
#include <random>
#include <vexa/klv/DullKLVHandler.h>

namespace {

/// Compares what a monitor counted with where the stream stands, at each event at which a position
/// means something.
class ComparingFilter : public ActionKLVFilter {
public:
    ComparingFilter(KLVHandler& next, std::istream& in) : ActionKLVFilter(next), in_(in) {}

    void setLocator(const Locator* locator) override { counted_ = locator; }
    void berLengthForm(std::uint8_t) override {}
    void endStream(bool) override {}
    int compared() const { return compared_; }

protected:
    void preAction() override {
        ++compared_;
        ASSERT_EQ(counted_->getPosition(),
                  in_.rdbuf()->pubseekoff(0, std::ios_base::cur, std::ios_base::in));
    }
    void postAction() override {}

private:
    std::istream& in_;
    const Locator* counted_ = nullptr;
    int compared_ = 0;
};

/// Wants some elements and refuses others, by chance.
class ChanceHandler : public KLVForwarder {
public:
    explicit ChanceHandler(unsigned seed) : random_(seed) { willing_.useBuffer(true); }

private:
    KLVHandler& getForwardee() override {
        return random_() % 2 == 0 ? static_cast<KLVHandler&>(willing_) : dull_;
    }

    std::mt19937 random_;
    Recording recording_;
    KLVRecorder willing_{recording_};
    DullKLVHandler dull_;
};

TEST(Positions, AgreeWhetherCountedOrAskedForWhateverIsWanted) {
    std::vector<Bytes> streams = {together(everyForm()).bytes()};
    for (const std::string& name : testDataNames()) {
        streams.push_back(withoutRunIn(testData(name)));
    }
    ASSERT_GE(streams.size(), 10U);
    for (const Bytes& bytes : streams) {
        for (unsigned seed = 1; seed <= 5; ++seed) {
            TestStream in(bytes);
            ChanceHandler handler(seed);
            ComparingFilter filter(handler, in);
            KLVMonitor monitor(filter);
            failureOf([&] { GenericKLVReader(monitor).parse(in); }); // one file is cut
            EXPECT_GT(filter.compared(), 20);
        }
    }
}

TEST(KLVMonitor, CountsWhatEventsImplyWithoutAStream) {
    DullKLVHandler handler;
    KLVMonitor monitor(handler);
    const auto position = [&] { return std::streamoff(monitor.getLocator().getPosition()); };
    const std::uint8_t data[10] = {};
    monitor.startStream(true);
    EXPECT_EQ(position(), 0);
    monitor.berLengthForm(0x83);
    // Item lengths in BER form follow the form, until the set ends.
    monitor.startLocalSet(berLocalSetKey, 100, 1, 0);
    EXPECT_EQ(position(), 20);
    monitor.startLocalItem(1, 0, nullptr);
    EXPECT_EQ(position(), 26);
    monitor.berLengthForm(1);
    monitor.startLocalItem(1, 0, nullptr);
    EXPECT_EQ(position(), 29);
    monitor.endLocalSet(berLocalSetKey);
    EXPECT_EQ(position(), 29); // all of it came as events
    monitor.berLengthForm(0x88);
    monitor.startLocalItem(1, 0, nullptr);
    EXPECT_EQ(position(), 32);
    monitor.startVariableLengthPack(someVariablePackKey, 100, 0);
    monitor.startVariableLengthItem(0, nullptr);
    EXPECT_EQ(position(), 66);
    monitor.endVariableLengthPack(someVariablePackKey);
    monitor.berLengthForm(1);
    monitor.startVariableLengthItem(0, nullptr);
    EXPECT_EQ(position(), 75);
    monitor.resetPosition();
    // Those of a fixed width don't follow it.
    monitor.startLocalSet(wideLocalSetKey, 100, 2, 3);
    EXPECT_EQ(position(), 17);
    monitor.berLengthForm(0x81);
    monitor.startLocalItem(1, 10, nullptr);
    EXPECT_EQ(position(), 25);
    monitor.endLocalItem(1);
    EXPECT_EQ(position(), 35);
    // A reset takes effect at once, and changes nothing else.
    monitor.resetPosition();
    monitor.value(data, 10);
    monitor.startLocalItem(1, 7, nullptr);
    EXPECT_EQ(position(), 18);
    // What is still due is counted when the stream ends, and the next stream goes on from there.
    monitor.endStream(true);
    EXPECT_EQ(position(), 25);
    monitor.startStream(true);
    monitor.endLocalItem(1);
    EXPECT_EQ(position(), 25);
    EXPECT_EQ(failureOf([&] { monitor.startStream(false); }), "accurate monitoring is possible");
}

TEST(KLVTeller, TellsThePositionAtTheEndAndNoneWhereTheStreamFailed) {
    DullKLVHandler handler;
    TestStream in(Bytes(5));
    KLVTeller teller(in, handler);
    in.ignore(5);
    in.peek();
    teller.endLabel(someLabelKey);
    EXPECT_EQ(teller.getLocator().getPosition(), std::streampos(5));
    EXPECT_EQ(in.rdstate(), std::ios_base::eofbit);
    in.clear(std::ios_base::badbit);
    teller.endLabel(someLabelKey);
    EXPECT_EQ(teller.getLocator().getPosition(), std::streampos(-1));
    EXPECT_EQ(in.rdstate(), std::ios_base::badbit | std::ios_base::failbit);
}

} // namespace
