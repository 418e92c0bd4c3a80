#pragma once

#include "klv/keyLiteral.h"

inline namespace vexa_toolkit {

/// The set and the property whose meaning the coding of a primer depends on (SMPTE 377M, Preface).
namespace metadata::keys {

using klvutil::operator""_key;

constexpr KLVKey preface = "060E2B34.02530101.0D010101.01012F00"_key;
constexpr KLVKey prefaceVersion = "060E2B34.01010102.03010201.05000000"_key;

} // namespace metadata::keys

} // namespace vexa_toolkit
