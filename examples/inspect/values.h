#pragma once

#include <vexa/vexa.h>

#include <string>

/// Values of metadata as text. Strings come out quoted, with what a terminal could mistake for more
/// than text escaped.
namespace values {

/// A label by its name, where it has one.
std::string text(const KLVKey& label);
std::string digits(const KLVKey& key);
bool isTimecode(const MXFSystemStamp& stamp);
/// The timecode in a stamp of a system item, whatever its digits; "none", or "unknown" for others.
std::string text(const MXFSystemStamp& stamp);
std::string text(const MXFUID& uid);
std::string text(const UMID& umid);
std::string text(const MXFRational& value);
std::string text(const MXFTimestamp& time);
std::string text(const MXFProductVersion& version);
std::string text(const std::wstring& text);
/// Bytes as text, one character for each.
std::string quoted(const std::string& bytes);
std::string text(bool value);
std::string text(const std::vector<std::uint32_t>& numbers);

/// As R:8 for eight bits of red.
std::string component(const RGBALayout::Component& component);

/// As 15010500 for the first picture element, the way the keys of elements show it.
std::string hexadecimal(std::uint32_t value);

/// hh:mm:ss:ff, with a semicolon before the frames of drop-frame timecode; the count of frames
/// where there is no such timecode.
std::string timecode(std::int64_t frames, std::uint16_t framesPerSecond, bool dropFrame);

} // namespace values
