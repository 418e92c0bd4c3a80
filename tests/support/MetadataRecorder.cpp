#include "support/MetadataRecorder.h"

#include "support/KLVBytes.h"
#include "util/hex.h"

#include <vexa/front/VEXADefaultMetadataFactory.h>

namespace {

std::string nameOf(const KLVKey& key) {
    const std::string text = hex(&key.bytes[8], 8);
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

std::string lineOf(const MXFPrimedSet& set) {
    std::string line = "set " + util::hexByte(set.key[14]);
    for (const auto& [key, value] : set.properties) {
        line += ' ' + nameOf(key) + '=' + hex(value);
    }
    return line;
}

void MetadataRecorder::startMetadata() {
    recording_.add("startMetadata");
    if (next_ != nullptr) {
        next_->startMetadata();
    }
}

void MetadataRecorder::endMetadata() {
    recording_.add("endMetadata");
    if (next_ != nullptr) {
        next_->endMetadata();
    }
}

void MetadataRecorder::primer(const MXFPrimer& primer) {
    std::string line = "primer";
    for (const MXFPrimerEntry& entry : primer) {
        line += ' ' + hex(KLVBytes().number(entry.tag, 2).bytes()) + '=' + nameOf(entry.key);
    }
    recording_.add(line);
    if (next_ != nullptr) {
        next_->primer(primer);
    }
}

bool MetadataRecorder::wantsPrimedSet(const KLVKey& key) {
    recording_.add("wants " + util::hexByte(key[14]));
    return next_ != nullptr ? next_->wantsPrimedSet(key) : key[14] != 0;
}

void MetadataRecorder::primedSet(const MXFPrimedSet& set) {
    const std::streamoff position = set.position;
    recording_.add(
        lineOf(set).insert(6, position < 0 ? std::string() : " @" + std::to_string(position)));
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
