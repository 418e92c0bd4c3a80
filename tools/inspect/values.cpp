#include "inspect/values.h"

#include <iomanip>
#include <sstream>

namespace values {

namespace {

template <class Printable> std::string printed(const Printable& value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

} // namespace

std::string hexadecimal(std::uint32_t value, int digits) {
    std::ostringstream text;
    text << std::hex << std::uppercase << std::setfill('0') << std::setw(digits) << value;
    return text.str();
}

std::string digits(const KLVKey& key) {
    return printed(key);
}

std::string digits(const MXFUID& uid) {
    return printed(uid);
}

std::string version(std::uint16_t major, std::uint16_t minor) {
    return std::to_string(major) + '.' + std::to_string(minor);
}

bool isTimecode(const MXFSystemStamp& stamp) {
    return gcsystem::timecodeOf(stamp).has_value();
}

std::string text(const MXFSystemStamp& stamp) {
    if (!isTimecode(stamp)) {
        return stamp[0] == 0 ? "none" : "unknown";
    }
    return toString(gcsystem::numbersOf(*gcsystem::timecodeOf(stamp)));
}

std::string startOf(const TimecodeComponent& timecode) {
    const auto start = numbersAtFrame(timecode.getStartTimecode(),
                                      timecode.getRoundedTimecodeBase(), timecode.getDropFrame());
    return start ? toString(*start) : std::string();
}

} // namespace values
