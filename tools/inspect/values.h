#pragma once

#include <vexa/vexa.h>

#include <cstdint>
#include <string>

/// What is printed as text and as JSON alike.
namespace values {

/// As 15010500 for the first picture element, the way the keys of elements show it.
std::string hexadecimal(std::uint32_t value, int digits = 8);

std::string digits(const KLVKey& key);
std::string digits(const MXFUID& uid);

/// As "1.3".
std::string version(std::uint16_t major, std::uint16_t minor);

bool isTimecode(const MXFSystemStamp& stamp);
/// The timecode in a stamp of a system item, whatever its digits; "none", or "unknown" for others.
std::string text(const MXFSystemStamp& stamp);

/// Where it starts, as hh:mm:ss:ff, with a semicolon before the frames of drop-frame timecode;
/// empty where there is no such timecode.
std::string startOf(const TimecodeComponent& timecode);

} // namespace values
