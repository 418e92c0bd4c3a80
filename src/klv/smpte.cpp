#include "klv/smpte.h"

#include "klv/berLength.h"
#include "klv/faults.h"
#include "util/check.h"

inline namespace vexa_toolkit {

namespace klvutil {

namespace {

constexpr std::uint8_t individualItem = 0x01;
constexpr std::uint8_t group = 0x02;
constexpr std::uint8_t wrapper = 0x03;
constexpr std::uint8_t label = 0x04;

constexpr std::uint8_t codingBits(const KLVKey& key) {
    return key[5] & 0x07;
}

constexpr std::uint8_t tagBits(const KLVKey& key) {
    return key[5] >> 3 & 0x03;
}

constexpr LengthType lengthBits(const KLVKey& key) {
    return key[5] >> 5 & 0x03;
}

constexpr bool hasReservedBit(const KLVKey& key) {
    return (key[5] & 0x80) != 0;
}

} // namespace

KLVCoding classify(const KLVKey& key) {
    if (!isSMPTEKey(key)) {
        fail(faults::invalidKey, describe(key));
    }
    switch (key[4]) {
    case individualItem:
        return KLVCoding::IndividualItem;
    case group:
        switch (codingBits(key)) {
        case 1:
            return KLVCoding::UniversalSet;
        case 3:
            return KLVCoding::LocalSet;
        case 4:
            return KLVCoding::VariableLengthPack;
        case 5:
            return KLVCoding::FixedLengthPack;
        default:
            break;
        }
        break;
    case wrapper:
        return KLVCoding::Wrapper;
    case label:
        return KLVCoding::Label;
    default:
        break;
    }
    fail(faults::unimplementedCoding, describe(key));
}

std::optional<LocalSetWidths> localSetWidths(const KLVKey& key) {
    util::check(isSMPTEKey(key) && key[4] == group, "valid local set key");
    if (codingBits(key) != 3 || tagBits(key) == 1 || hasReservedBit(key)) {
        return std::nullopt;
    }
    const TagType tagType = tagBits(key) == 0 ? 0 : tagBits(key) - 1U;
    return LocalSetWidths{tagType, lengthBits(key)};
}

std::optional<LengthType> variableLengthPackWidth(const KLVKey& key) {
    util::check(isSMPTEKey(key) && key[4] == group, "valid variable length pack key");
    if (codingBits(key) != 4 || tagBits(key) != 0 || hasReservedBit(key)) {
        return std::nullopt;
    }
    return lengthBits(key);
}

LocalSetWidths requireLocalSetWidths(const KLVKey& key) {
    const std::optional<LocalSetWidths> widths = localSetWidths(key);
    if (!widths) {
        fail(faults::invalidLocalSet, describe(key[5]));
    }
    return *widths;
}

LengthType requireVariableLengthPackWidth(const KLVKey& key) {
    const std::optional<LengthType> width = variableLengthPackWidth(key);
    if (!width) {
        fail(faults::invalidVariableLengthPack, describe(key[5]));
    }
    return *width;
}

bool isSimpleWrapper(const KLVKey& key) {
    util::check(isSMPTEKey(key) && key[4] == wrapper, "valid wrapper key");
    if (key[5] != 1 && key[5] != 2) {
        fail(faults::invalidWrapper, describe(key[5]));
    }
    return key[5] == 1;
}

std::uint8_t tagSize(TagType tagType) {
    util::check(tagType <= 2, "valid tag type");
    return static_cast<std::uint8_t>(1U << tagType);
}

std::uint8_t innerLengthSize(LengthType lengthType, std::uint8_t form) {
    util::check(lengthType <= 3, "valid length type");
    return lengthType == berLengths ? berLengthSize(form)
                                    : static_cast<std::uint8_t>(1U << (lengthType - 1));
}

} // namespace klvutil

} // namespace vexa_toolkit
