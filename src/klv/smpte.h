#pragma once

#include <vexa/klv/KLVHandler.h>
#include <vexa/klv/KLVKey.h>

#include <cstddef>
#include <cstdint>
#include <optional>

inline namespace vexa_toolkit {

/// What a key says of its element's coding (SMPTE 336M).
///
///     byte 0-3  06 0E 2B 34
///     byte 4    01 individual item, 02 group, 03 wrapper, 04 label
///     byte 5    of a group, bits 0-2:  1 universal set, 2 global set, 3 local set,
///                                      4 variable length pack, 5 fixed length pack
///               of a local set, bits 3-4: width of its tags; 0 is 1 octet, 2 is 2, 3 is 4;
///               1, BER OID tags, is refused
///               of a local set or variable length pack,
///               bits 5-6: width of the inner lengths; 0 is BER, 1 is 1 octet, 2 is 2, 3 is 4
///               of a wrapper: 01 simple, 02 not
namespace klvutil {

/// The kind of element that a key announces.
enum class KLVCoding {
    IndividualItem,
    UniversalSet,
    LocalSet,
    VariableLengthPack,
    FixedLengthPack,
    Wrapper,
    Label,
};

constexpr bool isSMPTEKey(const KLVKey& key) {
    return key[0] == 0x06 && key[1] == 0x0E && key[2] == 0x2B && key[3] == 0x34;
}

/// Throws parse_error "invalid SMPTE key" or "unimplemented SMPTE KLV coding".
KLVCoding classify(const KLVKey& key);

struct LocalSetWidths {
    TagType tagType;
    LengthType lengthType;
};

/// The widths in a local set's or variable length pack's byte 5, none if it is invalid. The checks
/// are "valid local set key" and "valid variable length pack key".
std::optional<LocalSetWidths> localSetWidths(const KLVKey& key);
std::optional<LengthType> variableLengthPackWidth(const KLVKey& key);

/// The same, but an invalid byte 5 is parse_error "invalid local set type" or "invalid variable
/// length pack type".
LocalSetWidths requireLocalSetWidths(const KLVKey& key);
LengthType requireVariableLengthPackWidth(const KLVKey& key);

/// True for byte 5 = 01; parse_error "invalid wrapper type" unless it is 01 or 02. The check is
/// "valid wrapper key".
bool isSimpleWrapper(const KLVKey& key);

// The usual widths, by name.
constexpr TagType twoOctetTags = 1;
constexpr LengthType berLengths = 0;
constexpr LengthType oneOctetLengths = 1;
constexpr LengthType twoOctetLengths = 2;
constexpr std::size_t longestTwoOctetLength = 0xFFFF;

/// 1, 2 or 4 octets, with the check "valid tag type".
std::uint8_t tagSize(TagType tagType);

/// Octets of an inner length, of a BER length in `form` for type 0, with the check "valid length
/// type".
std::uint8_t innerLengthSize(LengthType lengthType, std::uint8_t form);

} // namespace klvutil

} // namespace vexa_toolkit
