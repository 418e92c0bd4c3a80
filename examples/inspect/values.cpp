#include "values.h"

#include "../support/counted.h"

#include <iomanip>
#include <sstream>

namespace values {

namespace {

template <class Printable> std::string printed(const Printable& value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

std::string utf8(std::uint32_t codePoint) {
    const auto tail = [&](int shift) {
        return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
    };
    if (codePoint < 0x80) {
        return {static_cast<char>(codePoint)};
    }
    if (codePoint < 0x800) {
        return {static_cast<char>(0xC0 | codePoint >> 6), tail(0)};
    }
    if (codePoint < 0x10000) {
        return {static_cast<char>(0xE0 | codePoint >> 12), tail(6), tail(0)};
    }
    return {static_cast<char>(0xF0 | codePoint >> 18), tail(12), tail(6), tail(0)};
}

bool isPlain(std::uint32_t codePoint) {
    const bool control = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
    const bool unseen = codePoint == 0x061C || (codePoint >= 0x200B && codePoint <= 0x200F) ||
                        (codePoint >= 0x2028 && codePoint <= 0x202E) ||
                        (codePoint >= 0x2060 && codePoint <= 0x206F) || codePoint == 0xFEFF ||
                        codePoint >= 0xE0000;
    return !control && !unseen && codePoint != '"' && codePoint != '\\';
}

} // namespace

std::string text(const KLVKey& label) {
    const std::string name = metadata::labelName(label);
    const std::string digits = printed(label);
    constexpr std::size_t secondHalf = 3 * 8; // what tells the members of a family apart
    return name.empty() ? digits : "'" + name + "' (" + digits.substr(secondHalf) + ")";
}

std::string digits(const KLVKey& key) {
    return printed(key);
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

std::string text(const MXFUID& uid) {
    return printed(uid);
}

std::string text(const UMID& umid) {
    std::ostringstream text;
    text << std::hex << std::uppercase << std::setfill('0');
    for (std::size_t i = 0; i < umid.size(); ++i) {
        text << std::setw(2) << unsigned{umid.bytes[i]};
    }
    return text.str();
}

std::string text(const MXFRational& value) {
    return std::to_string(value.numerator) + "/" + std::to_string(value.denominator);
}

std::string text(const MXFTimestamp& time) {
    if (time == MXFTimestamp()) {
        return "unknown";
    }
    std::ostringstream text;
    text << std::setfill('0') << std::setw(4) << time.year << '-' << std::setw(2)
         << unsigned{time.month} << '-' << std::setw(2) << unsigned{time.day} << 'T' << std::setw(2)
         << unsigned{time.hour} << ':' << std::setw(2) << unsigned{time.minute} << ':'
         << std::setw(2) << unsigned{time.second} << '.' << std::setw(3)
         << 4 * unsigned{time.millisecondsBy4};
    return text.str();
}

std::string text(const MXFProductVersion& version) {
    std::ostringstream text;
    text << version.majorVersion << '.' << version.minorVersion << '.' << version.patchVersion
         << '.' << version.buildVersion << '.' << version.releaseVersion;
    return text.str();
}

std::string text(const std::wstring& text) {
    std::ostringstream quoted;
    quoted << '"' << std::hex << std::uppercase;
    for (const wchar_t element : text) {
        const auto codePoint = static_cast<std::uint32_t>(element);
        if (isPlain(codePoint)) {
            quoted << utf8(codePoint);
        } else {
            quoted << "\\u{" << codePoint << '}';
        }
    }
    quoted << '"';
    return quoted.str();
}

std::string quoted(const std::string& bytes) {
    std::wstring wide;
    for (const char byte : bytes) {
        wide.push_back(static_cast<wchar_t>(static_cast<unsigned char>(byte)));
    }
    return text(wide);
}

std::string text(bool value) {
    return value ? "yes" : "no";
}

std::string text(const std::vector<std::uint32_t>& numbers) {
    std::string list;
    for (const std::uint32_t number : numbers) {
        list += (list.empty() ? "" : ",") + std::to_string(number);
    }
    return list;
}

std::string component(const RGBALayout::Component& component) {
    const bool isLetter = component.code >= 'A' && component.code <= 'z';
    return (isLetter ? std::string(1, static_cast<char>(component.code))
                     : std::to_string(component.code)) +
           ':' + std::to_string(component.depth);
}

std::string hexadecimal(std::uint32_t value) {
    std::ostringstream text;
    text << std::hex << std::uppercase << std::setfill('0') << std::setw(8) << value;
    return text.str();
}

std::string timecode(std::int64_t frames, std::uint16_t framesPerSecond, bool dropFrame) {
    const auto numbers = numbersAtFrame(frames, framesPerSecond, dropFrame);
    return numbers ? toString(*numbers) : counted(frames, "frame");
}

} // namespace values
