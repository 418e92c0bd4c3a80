#include "util/check.h"

#include <vexa/gc/system/MXFTimecode.h>

inline namespace vexa_toolkit {

namespace gcsystem {

namespace {

// The bytes of a timecode.
constexpr std::size_t framesByte = 0;
constexpr std::size_t secondsByte = 1;
constexpr std::size_t minutesByte = 2;
constexpr std::size_t hoursByte = 3;

// The bits of their numbers.
constexpr std::uint8_t framesBits = 0x3F;
constexpr std::uint8_t secondsBits = 0x7F;
constexpr std::uint8_t minutesBits = 0x7F;
constexpr std::uint8_t hoursBits = 0x3F;

constexpr std::uint8_t dropFrameBit = 0x40;
constexpr std::uint8_t fieldMarkBit = 0x80;

std::size_t fieldMarkByte(std::uint32_t base) {
    util::check(base == 24 || base == 25 || base == 30, "valid rounded timecode base");
    return base == 25 ? hoursByte : secondsByte;
}

std::uint8_t fromDecimals(std::uint8_t byte, std::uint8_t bits) {
    return static_cast<std::uint8_t>(((byte & bits) >> 4) * 10 + (byte & 0x0F));
}

void setDecimals(std::uint8_t& byte, std::uint8_t bits, std::uint8_t number, int tensLimit) {
    util::check(number / 10 < tensLimit, "valid tens");
    byte = static_cast<std::uint8_t>((byte & ~bits) | number / 10 << 4 | number % 10);
}

void setFlag(std::uint8_t& byte, std::uint8_t bit, bool flag) {
    byte = static_cast<std::uint8_t>(flag ? byte | bit : byte & ~bit);
}

} // namespace

TimecodeNumbers numbersOf(const MXFTimecode& timecode) {
    const auto& bytes = timecode.bytes;
    TimecodeNumbers numbers;
    numbers.hours = fromDecimals(bytes[hoursByte], hoursBits);
    numbers.minutes = fromDecimals(bytes[minutesByte], minutesBits);
    numbers.seconds = fromDecimals(bytes[secondsByte], secondsBits);
    numbers.frames = fromDecimals(bytes[framesByte], framesBits);
    numbers.dropFrame = (bytes[framesByte] & dropFrameBit) != 0;
    return numbers;
}

TimecodeNumbers numbersOf(const MXFTimecode& timecode, std::uint32_t base) {
    TimecodeNumbers numbers = numbersOf(timecode);
    numbers.fieldMark = (timecode.bytes[fieldMarkByte(base)] & fieldMarkBit) != 0;
    return numbers;
}

void setNumbers(MXFTimecode& timecode, const TimecodeNumbers& numbers, std::uint32_t base) {
    auto bytes = timecode.bytes;
    setFlag(bytes[fieldMarkByte(base)], fieldMarkBit, numbers.fieldMark);
    setFlag(bytes[framesByte], dropFrameBit, numbers.dropFrame);
    setDecimals(bytes[framesByte], framesBits, numbers.frames, 4);
    setDecimals(bytes[secondsByte], secondsBits, numbers.seconds, 8);
    setDecimals(bytes[minutesByte], minutesBits, numbers.minutes, 8);
    setDecimals(bytes[hoursByte], hoursBits, numbers.hours, 3);
    timecode.bytes = bytes;
}

MXFTimecode timecodeAt(const TimecodeCalculator& calculator, std::uint32_t count,
                       std::uint32_t base) {
    MXFTimecode timecode;
    setNumbers(timecode, numbersAt(calculator, count), base);
    return timecode;
}

} // namespace gcsystem

} // namespace vexa_toolkit
