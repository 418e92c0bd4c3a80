#include "util/check.h"

#include <vexa/gc/TimecodeCalculator.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <limits>

inline namespace vexa_toolkit {

TimecodeCalculator::~TimecodeCalculator() = default;

namespace {

constexpr std::int64_t secondsPerDay = 24 * 60 * 60;

/// What both ways of counting share. All values are exact in 64 bits, for rates up to 2^31.
class BaseCalculator : public TimecodeCalculator {
public:
    BaseCalculator(std::int64_t framesPerSecond, std::int64_t framesPerDay, std::uint8_t subFrames)
        : framesPerSecond_(framesPerSecond), subFrames_(std::max<std::uint8_t>(subFrames, 1)),
          countsPerDay_(framesPerDay * subFrames_) {}

    bool isRepresentableTimecode(std::uint8_t hours, std::uint8_t minutes, std::uint8_t seconds,
                                 std::uint8_t frames, std::uint8_t subFrame) const override {
        return hours < 24 && minutes < 60 && seconds < 60 && frames < framesPerSecond_ &&
               subFrame < subFrames_;
    }

    std::uint32_t normalizeFrameCount(std::int32_t count) const override {
        std::int64_t result = count % countsPerDay_;
        if (result < 0) {
            result += countsPerDay_;
        }
        util::check(result <= std::numeric_limits<std::int32_t>::max(), "positive result");
        return static_cast<std::uint32_t>(result);
    }

    std::uint32_t getFramesPerDay() const override {
        return static_cast<std::uint32_t>(countsPerDay_);
    }

protected:
    std::int64_t frameOf(std::uint32_t count, std::uint8_t* subFrame) const {
        if (subFrame != nullptr) {
            *subFrame = static_cast<std::uint8_t>(count % subFrames_);
        }
        return count / subFrames_;
    }

    std::uint32_t countOf(std::int64_t frame, std::uint8_t subFrame) const {
        return static_cast<std::uint32_t>(frame * subFrames_ + subFrame);
    }

    std::int64_t framesPerSecond() const { return framesPerSecond_; }

private:
    const std::int64_t framesPerSecond_;
    const std::uint8_t subFrames_;
    const std::int64_t countsPerDay_;
};

class RegularTimecodeCalculator final : public BaseCalculator {
public:
    RegularTimecodeCalculator(std::int64_t rate, std::uint8_t subFrames)
        : BaseCalculator(rate, rate * secondsPerDay, subFrames) {}

    void frameCountToTimecode(std::uint32_t count, std::uint8_t& hours, std::uint8_t& minutes,
                              std::uint8_t& seconds, std::uint8_t& frames,
                              std::uint8_t* subFrame) const override {
        const std::int64_t total = frameOf(count, subFrame);
        const std::int64_t totalSeconds = total / framesPerSecond();
        hours = static_cast<std::uint8_t>(totalSeconds / 3600);
        minutes = static_cast<std::uint8_t>(totalSeconds / 60 % 60);
        seconds = static_cast<std::uint8_t>(totalSeconds % 60);
        frames = static_cast<std::uint8_t>(total % framesPerSecond());
    }

    std::uint32_t timecodeToFrameCount(std::uint8_t hours, std::uint8_t minutes,
                                       std::uint8_t seconds, std::uint8_t frames,
                                       std::uint8_t subFrame) const override {
        util::check(isValidTimecode(hours, minutes, seconds, frames, subFrame), "valid timecode");
        const std::int64_t totalSeconds = (hours * 60 + minutes) * 60 + seconds;
        return countOf(totalSeconds * framesPerSecond() + frames, subFrame);
    }

    bool isValidTimecode(std::uint8_t hours, std::uint8_t minutes, std::uint8_t seconds,
                         std::uint8_t frames, std::uint8_t subFrame) const override {
        return isRepresentableTimecode(hours, minutes, seconds, frames, subFrame);
    }

    bool isDropFrame() const override { return false; }
};

/// Each minute but every tenth leaves out its first numbers, 2 for each 30 frames per second, so
/// that the clock keeps up with a rate that is 1000/1001 of the whole one (SMPTE 12M).
class NTSCDropFrameCalculator final : public BaseCalculator {
public:
    NTSCDropFrameCalculator(std::int64_t rate, std::uint8_t subFrames)
        : BaseCalculator(rate, tenMinutesOf(rate) * 6 * 24, subFrames),
          droppedFrames_(droppedOf(rate)), framesPerMinute_(rate * 60 - droppedFrames_),
          framesPerTenMinutes_(tenMinutesOf(rate)) {}

    void frameCountToTimecode(std::uint32_t count, std::uint8_t& hours, std::uint8_t& minutes,
                              std::uint8_t& seconds, std::uint8_t& frames,
                              std::uint8_t* subFrame) const override {
        const std::int64_t total = frameOf(count, subFrame);
        const std::int64_t tenMinuteBlocks = total / framesPerTenMinutes_;
        // A block's first minute is longer by the numbers that the others leave out. Behind them
        // all minutes are equal; within them this is negative, and the division gives minute 0.
        const std::int64_t rest = total % framesPerTenMinutes_ - droppedFrames_;
        const std::int64_t minuteInBlock = rest / framesPerMinute_;
        const std::int64_t inMinute = rest % framesPerMinute_ + droppedFrames_;
        hours = static_cast<std::uint8_t>(tenMinuteBlocks / 6);
        minutes = static_cast<std::uint8_t>(tenMinuteBlocks % 6 * 10 + minuteInBlock);
        seconds = static_cast<std::uint8_t>(inMinute / framesPerSecond());
        frames = static_cast<std::uint8_t>(inMinute % framesPerSecond());
    }

    std::uint32_t timecodeToFrameCount(std::uint8_t hours, std::uint8_t minutes,
                                       std::uint8_t seconds, std::uint8_t frames,
                                       std::uint8_t subFrame) const override {
        util::check(isRepresentableTimecode(hours, minutes, seconds, frames, subFrame),
                    "valid timecode");
        const std::int64_t inMinute = isDropped(minutes, seconds, frames)
                                          ? droppedFrames_
                                          : framesPerSecond() * seconds + frames;
        const std::int64_t tenMinuteBlocks = hours * 6 + minutes / 10;
        return countOf(framesPerTenMinutes_ * tenMinuteBlocks + framesPerMinute_ * (minutes % 10) +
                           inMinute,
                       subFrame);
    }

    bool isValidTimecode(std::uint8_t hours, std::uint8_t minutes, std::uint8_t seconds,
                         std::uint8_t frames, std::uint8_t subFrame) const override {
        return isRepresentableTimecode(hours, minutes, seconds, frames, subFrame) &&
               !isDropped(minutes, seconds, frames);
    }

    bool isDropFrame() const override { return true; }

private:
    static std::int64_t droppedOf(std::int64_t rate) { return rate / 30 * 2; }

    static std::int64_t tenMinutesOf(std::int64_t rate) { return rate * 600 - droppedOf(rate) * 9; }

    bool isDropped(std::uint8_t minutes, std::uint8_t seconds, std::uint8_t frames) const {
        return minutes % 10 != 0 && seconds == 0 && frames < droppedFrames_;
    }

    const std::int64_t droppedFrames_;
    const std::int64_t framesPerMinute_;
    const std::int64_t framesPerTenMinutes_;
};

boost::shared_ptr<TimecodeCalculator> makeCalculator(std::int64_t rate, bool dropFrame,
                                                     std::uint8_t subFrames) {
    util::check(rate != 0, "non-zero frame rate");
    if (dropFrame) {
        util::check(rate % 30 == 0, "valid drop frame rate");
        return boost::make_shared<NTSCDropFrameCalculator>(rate, subFrames);
    }
    return boost::make_shared<RegularTimecodeCalculator>(rate, subFrames);
}

} // namespace

boost::shared_ptr<TimecodeCalculator> createTimecodeCalculator(unsigned char rate, bool dropFrame,
                                                               unsigned char subFrames) {
    return makeCalculator(rate, dropFrame, subFrames);
}

boost::shared_ptr<TimecodeCalculator> createTimecodeCalculator(unsigned char rate, bool dropFrame,
                                                               bool hasSubFrames) {
    return makeCalculator(rate, dropFrame, hasSubFrames ? 2 : 1);
}

boost::shared_ptr<TimecodeCalculator> createTimecodeCalculator(int numerator, int denominator) {
    util::check(denominator != 0, "non-zero frame rate denominator");
    util::check(numerator != 0, "non-zero frame rate");
    util::check((numerator < 0) == (denominator < 0), "positive frame rate");
    // In 64 bits nothing below overflows; the signs agree, so that all results are positive.
    const std::int64_t over = numerator;
    const std::int64_t under = denominator;
    const bool dropFrame = over % under != 0 && over % 30000 == 0 && under % 1001 == 0 &&
                           over / 30000 % (under / 1001) == 0;
    const std::int64_t rate = dropFrame ? over * 1001 / (under * 1000) : (over + under / 2) / under;
    return makeCalculator(rate, dropFrame, 1);
}

} // namespace vexa_toolkit
