#include "metadata/primed/writePrimedSet.h"

#include "klv/batch.h"
#include "klv/berLength.h"
#include "klv/smpte.h"
#include "metadata/primed/privateKeys.h"
#include "util/check.h"

#include <vexa/klv/KLVHandler.h>

#include <optional>
#include <set>

inline namespace vexa_toolkit {

namespace metadata {

namespace {

using Property = decltype(MXFPrimedSet::properties)::value_type;

LengthType itemLengthType(const KLVKey& key) {
    const std::optional<klvutil::LocalSetWidths> widths = klvutil::localSetWidths(key);
    util::check(widths.has_value(), "valid local set key");
    util::check(widths->tagType == klvutil::twoOctetTags, "supported tag type");
    return widths->lengthType;
}

std::uint8_t formFor(std::size_t size) {
    return size < 0x80 ? 1 : klvutil::defaultBERForm;
}

std::uint64_t totalLength(const MXFPrimedSet& set, LengthType lengthType) {
    std::uint64_t total = 0;
    for (const auto& [key, value] : set.properties) {
        if (!isPrivateKey(key)) {
            total += sizeof(std::uint16_t) +
                     klvutil::innerLengthSize(lengthType, formFor(value.size())) + value.size();
        }
    }
    return total;
}

void writeItem(KLVHandler& out, const KeyToTag& tags, LengthType lengthType,
               const Property& property) {
    const auto& [key, value] = property;
    const std::optional<std::uint16_t> tag = tags.find(key);
    util::check(tag.has_value(), "valid property key");
    if (lengthType == klvutil::berLengths) {
        out.berLengthForm(formFor(value.size()));
    }
    std::uint8_t* buffer = nullptr;
    if (out.startLocalItem(*tag, value.size(), &buffer) && !value.empty()) {
        out.value(value.data(), value.size());
    }
    out.endLocalItem(*tag);
}

std::vector<KLVKey> orderHint(const MXFPrimedSet& set) {
    const auto hint = set.properties.find(propertyOrderHintKey);
    if (hint == set.properties.end()) {
        return {};
    }
    util::byte_reader in(hint->second);
    std::vector<KLVKey> order = klvutil::readBatch(in, KLVKey::size, klvutil::decodeKey);
    klvutil::requireEnd(in);
    return order;
}

void writeItems(KLVHandler& out, const KeyToTag& tags, LengthType lengthType,
                const MXFPrimedSet& set) {
    const std::vector<KLVKey> first = orderHint(set);
    const std::set<KLVKey> named(first.begin(), first.end());
    util::check(named.size() == first.size(), "no repeated properties in order hint");
    for (const KLVKey& key : first) {
        const auto property = set.properties.find(key);
        if (property != set.properties.end() && !isPrivateKey(key)) {
            writeItem(out, tags, lengthType, *property);
        }
    }
    for (const Property& property : set.properties) {
        if (named.count(property.first) == 0 && !isPrivateKey(property.first)) {
            writeItem(out, tags, lengthType, property);
        }
    }
}

} // namespace

void writePrimedSet(KLVHandler& out, const KeyToTag& tags, const MXFPrimedSet& set,
                    std::uint8_t restoringForm) {
    const LengthType lengthType = itemLengthType(set.key);
    if (out.startLocalSet(set.key, totalLength(set, lengthType), klvutil::twoOctetTags,
                          lengthType)) {
        writeItems(out, tags, lengthType, set);
    }
    out.endLocalSet(set.key);
    if (lengthType == klvutil::berLengths) {
        out.berLengthForm(restoringForm);
    }
}

} // namespace metadata

} // namespace vexa_toolkit
