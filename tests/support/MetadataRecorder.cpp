#include "support/MetadataRecorder.h"

#include "util/hex.h"

namespace {

std::string hex(const std::vector<std::uint8_t>& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += util::hexByte(byte);
    }
    return text;
}

std::string nameOf(const KLVKey& key) {
    const std::string text = hex({key.bytes.begin() + 8, key.bytes.end()});
    return text.substr(0, (text.find_last_not_of('0') + 2) / 2 * 2);
}

} // namespace

void MetadataRecorder::primer(const MXFPrimer& primer) {
    std::string line = "primer";
    for (const MXFPrimerEntry& entry : primer) {
        const auto high = static_cast<std::uint8_t>(entry.tag >> 8);
        const auto low = static_cast<std::uint8_t>(entry.tag);
        line += ' ' + hex({high, low}) + '=' + nameOf(entry.key);
    }
    recording_.add(line);
}

bool MetadataRecorder::wantsPrimedSet(const KLVKey& key) {
    recording_.add("wants " + util::hexByte(key[14]));
    return key[14] != 0;
}

void MetadataRecorder::primedSet(const MXFPrimedSet& set) {
    std::string line = "set " + util::hexByte(set.key[14]);
    line += tellPositions_ ? " @" + std::to_string(std::streamoff(set.position)) : "";
    for (const auto& [key, value] : set.properties) {
        line += ' ' + nameOf(key) + '=' + hex(value);
    }
    recording_.add(line);
}
