#pragma once

#include <vexa/Export.h>
#include <vexa/metadata/MXFProductVersion.h>
#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/MXFTimestamp.h>
#include <vexa/metadata/UMID.h>

#include <string>

inline namespace vexa_toolkit {

/// Values of metadata as text.
namespace metadata {

/// As in "25/1".
VEXA_EXPORT std::string toString(const MXFRational& value);

/// As in "2005-09-15T12:34:56.788" (ISO 8601), whatever the numbers; "unknown" if all are zero.
VEXA_EXPORT std::string toString(const MXFTimestamp& time);

/// All five numbers, as in "1.2.3.4.1".
VEXA_EXPORT std::string toString(const MXFProductVersion& version);

/// 64 hexadecimal digits in upper case, or 128 for an extended one.
VEXA_EXPORT std::string toString(const UMID& umid);

/// The UTF-8 form of a string of code points. An element that is none becomes U+FFFD.
VEXA_EXPORT std::string toUtf8(const std::wstring& text);

} // namespace metadata

} // namespace vexa_toolkit
