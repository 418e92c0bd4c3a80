#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

#include <string>

inline namespace vexa_toolkit {

namespace metadata {

/// What a SMPTE universal label stands for, in a few words such as "OP1a" or "picture": data
/// definitions, operational patterns, essence containers, codings and descriptive schemes. Empty
/// for labels that this library doesn't know.
VEXA_EXPORT std::string labelName(const KLVKey& label);

/// The label's digits, and its name if it has one: "06.0E.2B.34. and so on .01.09.00 OP1a".
VEXA_EXPORT std::string labelText(const KLVKey& label);

} // namespace metadata

} // namespace vexa_toolkit
