#include <vexa/gc/TimecodeCalculator.h>
#include <vexa/gc/TimecodeNumbers.h>

inline namespace vexa_toolkit {

namespace {

std::string twoDigits(unsigned number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

std::string toString(const TimecodeNumbers& numbers) {
    return twoDigits(numbers.hours) + ':' + twoDigits(numbers.minutes) + ':' +
           twoDigits(numbers.seconds) + (numbers.dropFrame ? ';' : ':') + twoDigits(numbers.frames);
}

TimecodeNumbers numbersAt(const TimecodeCalculator& calculator, std::uint32_t count) {
    TimecodeNumbers numbers;
    std::uint8_t subFrame = 0;
    calculator.frameCountToTimecode(count, numbers.hours, numbers.minutes, numbers.seconds,
                                    numbers.frames, &subFrame);
    numbers.dropFrame = calculator.isDropFrame();
    numbers.fieldMark = subFrame != 0;
    return numbers;
}

boost::optional<TimecodeNumbers> numbersAtFrame(std::int64_t frame, std::uint32_t rate,
                                                bool dropFrame) {
    if (rate == 0 || rate > UINT8_MAX || (dropFrame && rate % 30 != 0)) {
        return boost::none;
    }
    const auto calculator =
        createTimecodeCalculator(static_cast<unsigned char>(rate), dropFrame, false);
    if (frame < 0 || frame >= calculator->getFramesPerDay()) {
        return boost::none;
    }
    return numbersAt(*calculator, static_cast<std::uint32_t>(frame));
}

} // namespace vexa_toolkit
