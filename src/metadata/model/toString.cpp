#include "klv/Fault.h"
#include "metadata/model/propertyText.h"
#include "util/hex.h"
#include "util/utf.h"

#include <vexa/metadata/toString.h>

#include <algorithm>

inline namespace vexa_toolkit {

namespace metadata {

namespace {

/// With zeros before it.
std::string padded(std::uint32_t number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::string hexadecimal(const std::uint8_t* bytes, std::size_t size) {
    std::string text;
    text.reserve(2 * size);
    for (std::size_t i = 0; i < size; ++i) {
        text += util::hexByte(bytes[i]);
    }
    return text;
}

} // namespace

std::string toString(const MXFRational& value) {
    return std::to_string(value.numerator) + '/' + std::to_string(value.denominator);
}

std::string toString(const MXFTimestamp& time) {
    if (time == MXFTimestamp()) {
        return "unknown";
    }
    return padded(time.year, 4) + '-' + padded(time.month, 2) + '-' + padded(time.day, 2) + 'T' +
           padded(time.hour, 2) + ':' + padded(time.minute, 2) + ':' + padded(time.second, 2) +
           '.' + padded(4U * time.millisecondsBy4, 3);
}

std::string toString(const MXFProductVersion& version) {
    std::string text = std::to_string(version.majorVersion);
    for (const std::uint16_t number : {version.minorVersion, version.patchVersion,
                                       version.buildVersion, version.releaseVersion}) {
        text += '.' + std::to_string(number);
    }
    return text;
}

std::string toString(const UMID& umid) {
    return hexadecimal(umid.bytes.data(), umid.size());
}

std::string toUtf8(const std::wstring& text) {
    std::string result;
    for (const wchar_t element : text) {
        result += util::utf8FromWide({element}).value_or("\xEF\xBF\xBD");
    }
    return result;
}

std::string toString(const MXFUID& uid) {
    return klvutil::describe(uid);
}

std::string toString(const AES3ChannelStatusData& status) {
    return hexadecimal(status.bytes.data(), status.bytes.size());
}

std::string toString(const std::string& bytes) {
    return toString(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
}

std::string toString(const std::vector<std::uint8_t>& bytes) {
    return hexadecimal(bytes.data(), bytes.size());
}

std::string toString(const RGBALayout::Component& component) {
    const int upper = component.code & ~0x20;
    const bool isLetter = upper >= 'A' && upper <= 'Z';
    return (isLetter ? std::string(1, static_cast<char>(component.code))
                     : std::to_string(component.code)) +
           ':' + std::to_string(component.depth);
}

} // namespace metadata

} // namespace vexa_toolkit
