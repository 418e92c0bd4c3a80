#include "gc/system/contentPackageRate.h"

#include "util/check.h"

#include <algorithm>
#include <iterator>

inline namespace vexa_toolkit {

namespace gcsystem {

namespace {

/// The place in the table, from 1, is the number of the rate; edit rates go up to 60.
constexpr std::uint32_t wholeRates[] = {24, 25, 30, 48, 50, 60, 72, 75, 90, 96, 100, 120};
constexpr std::uint8_t editRateCount = 6;

constexpr std::uint8_t firstDoubleRate = 0x08;

/// 0 for a rate that has none.
std::uint8_t rateByte(const MXFRational& editRate) {
    for (std::uint8_t i = 0; i < editRateCount; ++i) {
        const auto byte = static_cast<std::uint8_t>((i + 1) << 1);
        const auto rate = static_cast<std::int32_t>(wholeRates[i]);
        if (editRate == MXFRational{rate, 1}) {
            return byte;
        }
        if (rate % 25 != 0 && editRate == MXFRational{rate * 1000, 1001}) {
            return byte | 1;
        }
    }
    return 0;
}

} // namespace

std::uint8_t contentPackageRate(const MXFRational& editRate) {
    const std::uint8_t byte = rateByte(editRate);
    util::check(byte != 0, "valid edit rate");
    return byte;
}

std::uint8_t contentPackageRate(std::uint32_t framesPerSecond) {
    const auto* const found =
        std::find(std::begin(wholeRates), std::end(wholeRates), framesPerSecond);
    util::check(found != std::end(wholeRates), "valid frame rate");
    return static_cast<std::uint8_t>((found - wholeRates + 1) << 1);
}

bool isDoubleRate(const MXFRational& editRate) {
    return rateByte(editRate) >= firstDoubleRate;
}

std::uint32_t roundedTimecodeBase(const MXFRational& editRate) {
    util::check(editRate.denominator != 0, "non-zero edit rate denominator");
    const std::int64_t sign = editRate.denominator < 0 ? -1 : 1;
    const std::int64_t numerator = sign * editRate.numerator;
    const std::int64_t denominator = sign * editRate.denominator;
    util::check(numerator >= 0, "valid rounded timecode base");
    const auto rounded = static_cast<std::uint32_t>((numerator + denominator / 2) / denominator);
    return isDoubleRate(editRate) ? rounded / 2 : rounded;
}

} // namespace gcsystem

} // namespace vexa_toolkit
