#pragma once

#include "klv/keyLiteral.h"

inline namespace vexa_toolkit {

/// Keys of properties that the library attaches to sets for its own use, and never writes. The
/// value of each hint is a batch of 16-byte elements.
namespace metadata {

using klvutil::operator""_key;

/// The order in which a set's items are written, as their property keys.
constexpr KLVKey propertyOrderHintKey = "9CEF38E7.D80425C1.C3D20001.9CAD11E0"_key;

/// The order in which the sets of a model are written.
constexpr KLVKey primedSetOrderHintKey = "9CEF38E7.D80425C1.C3D20002.9CAD11E0"_key;

/// Bytes 10 and 11 tell private keys apart.
constexpr bool isPrivateKey(KLVKey key) {
    key[10] = propertyOrderHintKey[10];
    key[11] = propertyOrderHintKey[11];
    return key == propertyOrderHintKey;
}

} // namespace metadata

} // namespace vexa_toolkit
