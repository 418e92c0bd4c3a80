#pragma once

#include "klv/keyLiteral.h"

inline namespace vexa_toolkit {

/// The individual item behind the sets of header metadata that carries a sidecar document.
namespace front {

using klvutil::operator""_key;

constexpr KLVKey xmlMetadataKey = "060E2B34.01010105.03010220.01000000"_key;

} // namespace front

} // namespace vexa_toolkit
