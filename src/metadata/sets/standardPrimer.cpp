#include "metadata/primed/standardPrimer.h"

#include "metadata/primed/indexProperties.h"
#include "metadata/primed/primerLookup.h"

#include <vexa/metadata/MetadataRootFactory.h>
#include <vexa/metadata/sets/ModelFactories.h>

#include <map>

inline namespace vexa_toolkit {

namespace metadata {

namespace {

namespace properties = indexProperties;

/// In the order of the table.
constexpr std::uint16_t standardTags[] = {
    0x3C0A, 0x0102, 0x3B02, 0x3B05, 0x3B07, 0x3B08, 0x3B06, 0x3B03, 0x3B09, 0x3B0A, 0x3B0B, 0x3C09,
    0x3C01, 0x3C02, 0x3C03, 0x3C04, 0x3C05, 0x3C06, 0x3C07, 0x3C08, 0x0201, 0x0202, 0x1001, 0x1101,
    0x1102, 0x1201, 0x1501, 0x1502, 0x1503, 0x0601, 0x0602, 0x6102, 0x6101, 0x6103, 0x1901, 0x1902,
    0x2701, 0x3F06, 0x3F07, 0x2F01, 0x3006, 0x3001, 0x3002, 0x3004, 0x3005, 0x3215, 0x320C, 0x3203,
    0x3202, 0x3216, 0x3205, 0x3204, 0x3206, 0x3207, 0x3208, 0x3209, 0x320A, 0x320B, 0x3217, 0x320E,
    0x3218, 0x320D, 0x320F, 0x3210, 0x3211, 0x3213, 0x3214, 0x3212, 0x3201, 0x3219, 0x321A, 0x3301,
    0x3302, 0x3308, 0x3303, 0x330B, 0x3307, 0x3309, 0x3304, 0x3305, 0x3306, 0x3406, 0x3407, 0x3408,
    0x3409, 0x3405, 0x3401, 0x3403, 0x3404, 0x3D03, 0x3D02, 0x3D04, 0x3D05, 0x3D07, 0x3D01, 0x3D0C,
    0x3D06, 0x3E01, 0x3F01, 0x4801, 0x4804, 0x4802, 0x4803, 0x4B01, 0x4B02, 0x4901, 0x4902, 0x4401,
    0x4402, 0x4405, 0x4404, 0x4403, 0x4701, 0x4001, 0x4101, 0x3F05, 0x3F08, 0x3F09, 0x3F0A, 0x3F0B,
    0x3F0C, 0x3F0D, 0x3F0E,
};

/// The keys come from the classes that have the properties.
std::map<std::uint16_t, KLVKey> fixedTags() {
    std::map<std::uint16_t, KLVKey> keys;
    MXFFormatMetadataModelFactory structure;
    for (const auto& factory : structure.getFactories()) {
        const auto& classFactory = dynamic_cast<const MetadataRootFactory&>(*factory);
        for (const auto& [key, tag] : classFactory.getSetPrimer()) {
            if (tag != 0) {
                keys.emplace(tag, key);
            }
        }
    }
    for (const MXFPrimerEntry& entry :
         {properties::editUnitByteCount, properties::sliceCount, properties::deltaEntryArray,
          properties::indexEntryArray, properties::indexEditRate, properties::indexStartPosition,
          properties::indexDuration, properties::posTableCount}) {
        keys.emplace(entry.tag, entry.key);
    }
    return keys;
}

MXFPrimer makeStandardPrimer() {
    const std::map<std::uint16_t, KLVKey> keys = fixedTags();
    MXFPrimer primer;
    for (const std::uint16_t tag : standardTags) {
        primer.push_back({tag, keys.at(tag)});
    }
    return primer;
}

} // namespace

const MXFPrimer& standardPrimerTable() {
    static const MXFPrimer table = makeStandardPrimer();
    return table;
}

const MXFPrimer& indexPrimerTable() {
    static const MXFPrimer table{
        properties::instanceUID,     properties::editUnitByteCount, properties::indexSID,
        properties::bodySID,         properties::sliceCount,        properties::deltaEntryArray,
        properties::indexEntryArray, properties::indexEditRate,     properties::indexStartPosition,
        properties::indexDuration,
    };
    return table;
}

std::optional<KLVKey> standardKey(std::uint16_t tag) {
    static const TagToKey lookup(standardPrimerTable());
    const KLVKey* const key = lookup.find(tag);
    return key == nullptr ? std::nullopt : std::optional(*key);
}

std::optional<std::uint16_t> standardTag(const KLVKey& key) {
    static const KeyToTag lookup(standardPrimerTable());
    return lookup.find(key);
}

} // namespace metadata

} // namespace vexa_toolkit
