#include "support/Testing.h"

#include <limits>

namespace {

using Count = std::uint32_t;
using Byte = std::uint8_t;

constexpr int intMin = std::numeric_limits<int>::min();
constexpr int intMax = std::numeric_limits<int>::max();

/// Walks the clock number by number through a day, leaving out the first `dropped` numbers of each
/// minute but every tenth, and compares every count in both directions.
void walkDay(const TimecodeCalculator& calculator, int rate, int dropped, int subFrames) {
    Count count = 0;
    for (int number = 0; number < 24 * 3600 * rate * subFrames; number++) {
        const int frame = number / subFrames;
        const Byte h = static_cast<Byte>(frame / rate / 3600);
        const Byte m = static_cast<Byte>(frame / rate / 60 % 60);
        const Byte s = static_cast<Byte>(frame / rate % 60);
        const Byte f = static_cast<Byte>(frame % rate);
        const Byte k = static_cast<Byte>(number % subFrames);
        const bool real = m % 10 == 0 || s != 0 || f >= dropped;
        Byte hours = 99, minutes = 99, seconds = 99, frames = 99, subFrame = 99;
        calculator.frameCountToTimecode(count, hours, minutes, seconds, frames, &subFrame);
        const bool same =
            hours == h && minutes == m && seconds == s && frames == f && subFrame == k;
        ASSERT_TRUE(same == real && calculator.isValidTimecode(h, m, s, f, k) == real &&
                    calculator.isRepresentableTimecode(h, m, s, f, k) &&
                    calculator.timecodeToFrameCount(h, m, s, f, k) == count + (real ? 0 : k))
            << "count " << count << " at " << +h << ':' << +m << ':' << +s << ':' << +f;
        count += real ? 1 : 0;
    }
    EXPECT_EQ(calculator.getFramesPerDay(), count);
    EXPECT_EQ(calculator.normalizeFrameCount(-1), count - 1);
    EXPECT_EQ(calculator.normalizeFrameCount(-static_cast<int>(count)), 0u);
    EXPECT_EQ(calculator.normalizeFrameCount(static_cast<int>(3 * count + 5)), 5u);
}

TEST(TimecodeCalculator, CountsADayAsTheClockDoes) {
    walkDay(*createTimecodeCalculator(30, true, true), 30, 2, 2);
    walkDay(*createTimecodeCalculator(60, true, Byte{0}), 60, 4, 1);
    walkDay(*createTimecodeCalculator(120000, 1001), 120, 8, 1);
    walkDay(*createTimecodeCalculator(24, false, false), 24, 0, 1);
    walkDay(*createTimecodeCalculator(25, false, Byte{3}), 25, 0, 3);
}

TEST(TimecodeCalculator, ChoosesRateAndDropFrameByTheEditRate) {
    const struct {
        int numerator, denominator;
        Count day;
    } rows[] = {{24, 1, 2073600},       {24000, 1001, 2073600},      {25, 1, 2160000},
                {30, 1, 2592000},       {30000, 1001, 2589408},      {50, 1, 4320000},
                {60, 1, 5184000},       {60000, 1001, 5178816},      {15000, 1001, 1296000},
                {1, 2, 86400},          {-30000, -1001, 2589408},    {60000, 2002, 2589408},
                {30000, 2002, 1296000}, {30000, 1100, 2332800},      {30030000, 1001, 2592000000},
                {intMin, -1, 0},        {intMax, intMax - 1, 86400}, {2147460000, 1001, 671409728}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.numerator << '/' << row.denominator);
        const auto calculator = createTimecodeCalculator(row.numerator, row.denominator);
        Byte h = 0, m = 0, s = 0, f = 0;
        calculator->frameCountToTimecode(1, h, m, s, f, nullptr);
        EXPECT_EQ(calculator->timecodeToFrameCount(h, m, s, f, 0), 1u);
        EXPECT_EQ(calculator->getFramesPerDay(), row.day);
        EXPECT_EQ(calculator->normalizeFrameCount(1), 1u);
    }
}

template <typename... Rate> std::string refusal(Rate... rate) {
    return failureOf([=] { createTimecodeCalculator(rate...); });
}

TEST(TimecodeCalculator, RefusesWhatIsNoRateTimecodeOrCount) {
    EXPECT_EQ(refusal(0, 0), "non-zero frame rate denominator");
    EXPECT_EQ(refusal(0, -1), "non-zero frame rate");
    EXPECT_EQ(refusal(1, 3), "non-zero frame rate");
    EXPECT_EQ(refusal(25, -1), "positive frame rate");
    EXPECT_EQ(refusal(intMin, 1), "positive frame rate");
    EXPECT_EQ(refusal(Byte{0}, true, true), "non-zero frame rate");
    EXPECT_EQ(refusal(Byte{25}, true, false), "valid drop frame rate");

    const auto calculator = createTimecodeCalculator(30, true, true);
    const Byte wrong[][5] = {
        {24, 0, 0, 0, 0}, {0, 60, 0, 0, 0}, {0, 0, 60, 0, 0}, {0, 0, 0, 30, 0}, {0, 0, 0, 0, 2}};
    for (const auto& t : wrong) {
        EXPECT_EQ(
            failureOf([&] { calculator->timecodeToFrameCount(t[0], t[1], t[2], t[3], t[4]); }),
            "valid timecode");
        EXPECT_FALSE(calculator->isValidTimecode(t[0], t[1], t[2], t[3], t[4]));
    }

    const auto longDay = createTimecodeCalculator(255, false, Byte{100});
    EXPECT_EQ(longDay->normalizeFrameCount(intMax), Count{intMax});
    EXPECT_EQ(failureOf([&] { longDay->normalizeFrameCount(-1); }), "positive result");
}

std::string textAt(std::int64_t frame, std::uint32_t rate, bool dropFrame) {
    const auto numbers = numbersAtFrame(frame, rate, dropFrame);
    return numbers ? toString(*numbers) : "";
}

TEST(TimecodeNumbers, AreWrittenAsTheClockIsRead) {
    EXPECT_EQ(textAt(1800, 30, true), "00:01:00;02");
    EXPECT_EQ(textAt(1800, 30, false), "00:01:00:00");
    EXPECT_EQ(textAt(24 * 3600 * 120 - 1, 120, false), "23:59:59:119");
    for (const auto& [frame, rate, dropFrame] : {std::tuple(-1, 25, false),
                                                 {2160000, 25, false},
                                                 {0, 0, false},
                                                 {0, 256, false},
                                                 {0, 25, true}}) {
        EXPECT_EQ(textAt(frame, static_cast<std::uint32_t>(rate), dropFrame), "");
    }
}

} // namespace
