#include "klv/writeElements.h"

#include "klv/berLength.h"
#include "klv/fillItem.h"
#include "klv/smpte.h"
#include "util/check.h"

#include <algorithm>
#include <array>
#include <optional>

inline namespace vexa_toolkit {

namespace klvutil {

namespace {

LocalSetWidths localItemWidths(const KLVKey& key) {
    const std::optional<LocalSetWidths> widths = localSetWidths(key);
    util::check(widths.has_value(), "valid local set type");
    return *widths;
}

LengthType variableItemWidth(const KLVKey& key) {
    const std::optional<LengthType> width = variableLengthPackWidth(key);
    util::check(width.has_value(), "valid variable length pack type");
    return *width;
}

void sendUnlessEmpty(KLVHandler& handler, const Bytes& bytes) {
    if (!bytes.empty()) {
        handler.value(bytes.data(), bytes.size());
    }
}

} // namespace

void writeIndividualItem(KLVHandler& handler, const KLVKey& key, const std::uint8_t* data,
                         std::size_t size) {
    std::uint8_t* buffer = nullptr;
    if (handler.startIndividualItem(key, size, &buffer)) {
        handler.value(data, size);
    }
    handler.endIndividualItem(key);
}

void writeFixedLengthPack(KLVHandler& handler, const KLVKey& key, const Bytes& bytes) {
    std::uint8_t* buffer = nullptr;
    if (handler.startFixedLengthPack(key, bytes.size(), &buffer)) {
        sendUnlessEmpty(handler, bytes);
    }
    handler.endFixedLengthPack(key);
}

void writeLocalSet(KLVHandler& handler, const KLVKey& key, const std::vector<LocalItem>& items,
                   std::uint8_t form) {
    const LocalSetWidths widths = localItemWidths(key);
    const std::uint64_t itemHead =
        std::uint64_t{tagSize(widths.tagType)} + innerLengthSize(widths.lengthType, form);
    std::uint64_t length = 0;
    for (const LocalItem& item : items) {
        length += itemHead + item.second.size();
    }
    if (handler.startLocalSet(key, length, widths.tagType, widths.lengthType)) {
        for (const auto& [tag, bytes] : items) {
            std::uint8_t* buffer = nullptr;
            if (handler.startLocalItem(tag, bytes.size(), &buffer)) {
                sendUnlessEmpty(handler, bytes);
            }
            handler.endLocalItem(tag);
        }
    }
    handler.endLocalSet(key);
}

void writeVariableLengthPack(KLVHandler& handler, const KLVKey& key,
                             const std::vector<Bytes>& items, std::uint8_t form) {
    const LengthType lengthType = variableItemWidth(key);
    const std::uint64_t itemHead = innerLengthSize(lengthType, form);
    std::uint64_t length = 0;
    for (const Bytes& item : items) {
        length += itemHead + item.size();
    }
    if (handler.startVariableLengthPack(key, length, lengthType)) {
        for (const Bytes& bytes : items) {
            std::uint8_t* buffer = nullptr;
            if (handler.startVariableLengthItem(bytes.size(), &buffer)) {
                sendUnlessEmpty(handler, bytes);
            }
            handler.endVariableLengthItem();
        }
    }
    handler.endVariableLengthPack(key);
}

void writeFillItem(KLVHandler& handler, std::uint64_t valueLength, std::uint8_t form) {
    handler.berLengthForm(form);
    std::uint8_t* buffer = nullptr;
    if (handler.startIndividualItem(fillItemKey, valueLength, &buffer)) {
        static constexpr std::array<std::uint8_t, 4096> zeros{};
        for (std::uint64_t left = valueLength; left > 0;) {
            const std::uint64_t size = std::min<std::uint64_t>(left, zeros.size());
            handler.value(zeros.data(), size);
            left -= size;
        }
    }
    handler.endIndividualItem(fillItemKey);
}

std::uint64_t fillItemOverhead(std::uint8_t form) {
    return std::uint64_t{KLVKey::size} + berLengthSize(form);
}

} // namespace klvutil

} // namespace vexa_toolkit
