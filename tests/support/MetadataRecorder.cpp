#include "support/MetadataRecorder.h"

#include "util/hex.h"

#include <vexa/front/VEXADefaultMetadataFactory.h>

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

std::string treeOf(MXFMetadataFactory& factory, const boost::shared_ptr<const MetadataRoot>& root) {
    const MetadataRoot& coded = *root;
    factory.canCode(typeid(coded));
    const MXFPrimedSet set = factory.code(root);
    std::string text = util::hexByte(set.key[14]) + '.' + util::hexByte(root->getInstanceUID()[15]);
    std::string children;
    for (const auto& child : set.references) {
        children += (children.empty() ? "" : " ") + treeOf(factory, child);
    }
    return text + '(' + children + ')';
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

void SetKeeper::startMetadata() {
    if (next_ != nullptr) {
        next_->startMetadata();
    }
}

void SetKeeper::endMetadata() {
    if (next_ != nullptr) {
        next_->endMetadata();
    }
}

void SetKeeper::primer(const MXFPrimer& primer) {
    keptPrimer = primer;
    if (next_ != nullptr) {
        next_->primer(primer);
    }
}

bool SetKeeper::wantsPrimedSet(const KLVKey& key) {
    return next_ == nullptr || next_->wantsPrimedSet(key);
}

void SetKeeper::primedSet(const MXFPrimedSet& set) {
    sets.push_back(set);
    if (next_ != nullptr) {
        next_->primedSet(set);
    }
}

void ModelRecorder::model(const std::vector<boost::shared_ptr<MetadataRoot>>& model) {
    const auto factory = createVEXADefaultMetadataFactory();
    std::string line = "model";
    for (const auto& root : model) {
        line += ' ' + treeOf(*factory, root);
    }
    recording_.add(line);
    roots = model;
}
