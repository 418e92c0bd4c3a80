#include "klv/ActionKLVFilter.h"
#include "klv/KLVFillItemKeyFilter.h"
#include "klv/KLVForwarder.h"
#include "klv/KLVMonitor.h"
#include "klv/KLVStreamFilter.h"
#include "klv/KLVTeller.h"
#include "support/Failures.h"
#include "support/KLVBytes.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vexa/klv/DullKLVHandler.h>

namespace {

/// Sends each event of KLVHandler once, but setLocator. Returns the answers, as digits, and how
/// often a buffer came back.
std::string sendEveryEvent(KLVHandler& to) {
    std::string answers;
    std::uint8_t data[] = {1, 2};
    std::uint8_t* buffer = nullptr;
    int buffers = 0;
    const auto note = [&](bool answer) {
        answers += answer ? '1' : '0';
        buffers += buffer != nullptr ? 1 : 0;
        buffer = nullptr;
    };
    to.startStream(true);
    to.berLengthForm(0x85);
    note(to.startIndividualItem(someItemKey, 11, &buffer));
    to.endIndividualItem(someItemKey);
    note(to.startLabel(someLabelKey));
    to.endLabel(someLabelKey);
    note(to.startUniversalSet(someUniversalSetKey, 12));
    to.endUniversalSet(someUniversalSetKey);
    note(to.startLocalSet(someLocalSetKey, 13, 1, 2));
    note(to.startLocalItem(0xABCD, 14, &buffer));
    to.endLocalItem(0xABCD);
    to.endLocalSet(someLocalSetKey);
    note(to.startFixedLengthPack(someFixedPackKey, 15, &buffer));
    to.endFixedLengthPack(someFixedPackKey);
    note(to.startVariableLengthPack(someVariablePackKey, 16, 3));
    note(to.startVariableLengthItem(17, &buffer));
    to.endVariableLengthItem();
    to.endVariableLengthPack(someVariablePackKey);
    note(to.startWrapper(someWrapperKey, 18, true, &buffer));
    to.value(data, 2);
    to.endWrapper(someWrapperKey);
    to.endStream(true);
    return answers + ' ' + std::to_string(buffers);
}

struct ForwardingHandler : KLVForwarder {
    explicit ForwardingHandler(KLVHandler& to) : target(&to) {}
    KLVHandler& getForwardee() override { return *target; }
    KLVHandler* target;
};

struct Actions : ActionKLVFilter {
    Actions(KLVHandler& next, Recording& recording) : ActionKLVFilter(next), log(recording) {}
    void preAction() override { log.add("pre"); }
    void postAction() override { log.add("post"); }
    Recording& log;
};

TEST(KLVFilters, PassEveryEventAndItsAnswerUnchanged) {
    TestStream in(KLVBytes::Bytes(1));
    Recording unused;
    using Create = std::function<std::unique_ptr<KLVHandler>(KLVHandler&)>;
    const std::pair<const char*, Create> filters[] = {
        {"DullKLVFilter", [](KLVHandler& next) { return std::make_unique<DullKLVFilter>(next); }},
        {"ActionKLVFilter",
         [&](KLVHandler& next) { return std::make_unique<Actions>(next, unused); }},
        {"KLVForwarder",
         [](KLVHandler& next) { return std::make_unique<ForwardingHandler>(next); }},
        {"KLVFillItemKeyFilter",
         [](KLVHandler& next) { return std::make_unique<KLVFillItemKeyFilter>(next, 0); }},
        {"KLVMonitor", [](KLVHandler& next) { return std::make_unique<KLVMonitor>(next); }},
        {"KLVTeller", [&](KLVHandler& next) { return std::make_unique<KLVTeller>(in, next); }},
    };
    for (const bool wanted : {true, false}) {
        Recording direct;
        KLVRecorder recorder(direct);
        recorder.setWanted(wanted);
        recorder.useBuffer(true);
        const std::string answers = sendEveryEvent(recorder);
        EXPECT_EQ(answers, wanted ? "111111111 5" : "000000000 0");
        EXPECT_EQ(direct.lines().size(), 22);
        for (const auto& [name, create] : filters) {
            Recording filtered;
            KLVRecorder behind(filtered);
            behind.setWanted(wanted);
            behind.useBuffer(true);
            EXPECT_EQ(sendEveryEvent(*create(behind)), answers) << name;
            std::string text;
            for (const std::string& line : filtered.lines()) {
                // The trackers give a locator of their own.
                text += line == "setLocator" ? "" : line.substr(0, line.find(" @")) + '\n';
            }
            EXPECT_EQ(text, direct.text()) << name;
        }
    }
    DullKLVHandler dull;
    EXPECT_EQ(sendEveryEvent(dull), "000000000 0");
}

TEST(KLVFilters, NeedAHandler) {
    TestStream in(KLVBytes::Bytes(1));
    DullKLVFilter dull;
    KLVMonitor monitor;
    KLVTeller teller(in);
    DullKLVHandler handler;
    for (KLVFilter* filter : std::initializer_list<KLVFilter*>{&dull, &monitor, &teller}) {
        EXPECT_EQ(failureOf([&] { filter->getHandler(); }), "handler is present");
        EXPECT_EQ(failureOf([&] { filter->endLabel(someLabelKey); }), "handler is present");
        filter->setHandler(&handler);
        EXPECT_EQ(&filter->getHandler(), &handler);
        EXPECT_EQ(failureOf([&] { filter->endLabel(someLabelKey); }), "");
    }
}

TEST(ActionKLVFilter, ActsAroundEveryEventButSetLocator) {
    Recording recording;
    KLVRecorder recorder(recording);
    Actions filter(recorder, recording);
    filter.setLocator(nullptr);
    EXPECT_TRUE(filter.startLabel(someLabelKey));
    filter.endStream(false);
    EXPECT_EQ(recording.text(), "setLocator\npre\nstartLabel 7E02\npost\npre\nendStream\npost\n");
    sendEveryEvent(filter);
    const std::vector<std::string>& lines = recording.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "pre"), 24);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "post"), 24);
}

TEST(KLVStreamFilter, KeepsBackTheBracketsOfTheStream) {
    Recording recording;
    KLVRecorder recorder(recording);
    KLVStreamFilter filter(recorder);
    KLVMonitor monitor(filter); // gives it a locator
    sendEveryEvent(monitor);
    EXPECT_EQ(recording.lines().size(), 20);
    EXPECT_EQ(recording.lines().front(), "form 85");
    EXPECT_EQ(recording.lines().back(), "endWrapper 7E07");
}

TEST(KLVForwarder, AsksForItsTargetAtEveryEvent) {
    Recording recording;
    KLVRecorder one(recording, "one"), other(recording, "other");
    ForwardingHandler forwarder(one);
    forwarder.startLabel(someLabelKey);
    forwarder.target = &other;
    forwarder.endLabel(someLabelKey);
    EXPECT_EQ(recording.text(), "one: startLabel 7E02\nother: endLabel 7E02\n");
}

TEST(KLVFillItemKeyFilter, WarnsOnceInAStreamOfAVersionThatIsNotExpected) {
    struct Case {
        std::uint8_t expected;
        std::vector<int> versions;
        std::string warning;
    };
    const Case cases[] = {
        {0, {1, 2, 1}, ""}, {0, {1, 3, 0, 2}, "0x03"}, {0, {0}, "0x00"},
        {1, {1, 1}, ""},    {1, {1, 2, 3, 2}, "0x02"}, {2, {2}, ""},
        {2, {1}, "0x01"},   {0xAB, {0xAB}, ""},
    };
    for (const Case& c : cases) {
        Recording recording;
        KLVRecorder recorder(recording);
        KeepingErrorHandler errors;
        KLVFillItemKeyFilter filter(recorder, c.expected);
        std::string expected;
        for (const bool withHandler : {false, true, true}) { // three streams
            filter.setErrorHandler(withHandler ? &errors : nullptr);
            filter.startStream(true);
            for (const int version : c.versions) {
                KLVKey key = smpteKey({1, 1, 1, version, 3, 1, 2, 0x10, 1});
                filter.startIndividualItem(key, 0, nullptr);
                filter.endIndividualItem(key);
                key[4] = 2; // no fill item
                filter.startIndividualItem(key, 0, nullptr);
            }
            if (withHandler && !c.warning.empty()) {
                expected +=
                    "warning 4C4B0004 unexpected fill item key version - " + c.warning + '\n';
            }
        }
        EXPECT_EQ(errors.text(), expected);
        EXPECT_EQ(recording.lines().size(), 3 * (1 + 3 * c.versions.size()));
    }
}

} // namespace
