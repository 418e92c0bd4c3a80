#include "klv/ActionKLVFilter.h"
#include "klv/KLVFillItemKeyFilter.h"
#include "klv/KLVForwarder.h"
#include "klv/KLVStreamFilter.h"
#include "klv/RecordedParse.h"
#include "support/Testing.h"

namespace {

struct Actions : ActionKLVFilter {
    Actions(KLVHandler& next, Recording& recording) : ActionKLVFilter(next), log(recording) {}
    void preAction() override { log.add("pre"); }
    void postAction() override { log.add("post"); }
    Recording& log;
};

TEST(ActionKLVFilter, ActsAroundEveryEventButSetLocator) {
    Recording recording;
    KLVRecorder recorder(recording);
    Actions filter(recorder, recording);
    filter.setLocator(nullptr);
    EXPECT_TRUE(filter.startLabel(someLabelKey));
    filter.endStream(false);
    EXPECT_EQ(recording.text(), "setLocator\npre\nstartLabel 7E02\npost\npre\nendStream\npost\n");
}

struct Switch : KLVForwarder {
    KLVHandler& getForwardee() override { return *target; }
    KLVHandler* target = nullptr;
};

TEST(KLVForwarder, SwitchesItsTargetBetweenEvents) {
    Recording recording;
    KLVRecorder first(recording, "first");
    KLVRecorder second(recording, "second");
    second.want(Wants::Nothing);
    Switch forwarder;
    forwarder.target = &first;
    EXPECT_TRUE(forwarder.startLabel(someLabelKey));
    forwarder.target = &second;
    forwarder.endLabel(someLabelKey);
    EXPECT_FALSE(forwarder.startUniversalSet(innerSetKey, 5));
    EXPECT_EQ(recording.text(), "first: startLabel 7E02\nsecond: endLabel 7E02\n"
                                "second: startUniversalSet 7E13 5\n");
}

TEST(KLVStreamFilter, KeepsBackTheBracketsOfTheStream) {
    Recording recording;
    KLVRecorder recorder(recording);
    KLVStreamFilter filter(recorder);
    TestStream in(KLVBytes().key(someLabelKey).bytes());
    GenericKLVReader(filter).parse(in);
    EXPECT_EQ(recording.text(), "startLabel 7E02\nendLabel 7E02\n");
}

TEST(KLVFillItemKeyFilter, WarnsOnceInAStreamOfAVersionThatIsNotExpected) {
    const struct {
        std::uint8_t expected;
        std::vector<int> versions;
        std::string warning;
    } cases[] = {
        {0, {1, 2, 1}, ""}, {0, {1, 3, 0, 2}, "0x03"}, {0, {0}, "0x00"},
        {1, {1, 1}, ""},    {1, {1, 2, 3, 2}, "0x02"}, {2, {2, 1}, "0x01"},
    };
    for (const auto& c : cases) {
        DullKLVHandler handler;
        KeepingErrorHandler errors;
        KLVFillItemKeyFilter filter(handler, c.expected);
        for (ErrorHandler* const to :
             std::initializer_list<ErrorHandler*>{nullptr, &errors, &errors}) {
            filter.setErrorHandler(to);
            filter.startStream(true);
            for (const int version : c.versions) {
                filter.startIndividualItem(smpteKey({1, 1, 1, 7}), 0, nullptr); // no fill item
                filter.endIndividualItem(smpteKey({1, 1, 1, version, 3, 1, 2, 0x10, 1}));
            }
        }
        const std::string text = "warning 4C4B0004 unexpected fill item key version - " + c.warning;
        EXPECT_EQ(errors.text(), c.warning.empty() ? "" : text + '\n' + text + '\n');
    }
}

} // namespace
