#include "inspect/HeaderMetadata.h"

#include <algorithm>
#include <sstream>
#include <string_view>

namespace {

using Object = boost::shared_ptr<const MetadataRoot>;
using metadata::ValueKind;

/// Takes down the properties of one object, and the objects that it owns.
class Describer : public metadata::PropertyVisitor {
public:
    using Owned = std::pair<std::string, Object>;

    Describer(ModelObject& described, std::vector<Owned>& owned)
        : described_(described), owned_(owned) {}

    void value(const char* name, ValueKind kind, const std::string& text) override {
        if (name != std::string_view("instanceUID")) {
            described_.properties.push_back({name, kind, false, {text}});
        }
    }
    void values(const char* name, ValueKind kind, const std::vector<std::string>& texts) override {
        described_.properties.push_back({name, kind, true, texts});
    }
    void object(const char* name, const Object& object) override {
        if (object != nullptr) {
            owned_.emplace_back(name, object);
        }
    }
    void objects(const char* name, const std::vector<Object>& objects) override {
        for (const Object& owned : objects) {
            object(name, owned);
        }
    }
    void reference(const char* name, const Object& target) override {
        if (target != nullptr) {
            std::ostringstream uid;
            uid << target->getInstanceUID();
            value(name, ValueKind::Other, uid.str());
        }
    }
    void darkValue(const KLVKey& key, const std::vector<std::uint8_t>& bytes) override {
        described_.darkProperties.emplace_back(key, bytes);
    }
    void darkObject(const KLVKey& key, const Object& object) override {
        std::ostringstream name;
        name << key;
        this->object(name.str().c_str(), object);
    }

private:
    ModelObject& described_;
    std::vector<Owned>& owned_;
};

/// A model may be deeper than the stack.
void appendTree(const Object& root, std::vector<ModelObject>& list) {
    std::vector<ModelObject> work(1);
    work.back().object = root;
    while (!work.empty()) {
        ModelObject described = std::move(work.back());
        work.pop_back();
        std::vector<Describer::Owned> owned;
        Describer describer(described, owned);
        metadata::visitProperties(*described.object, describer);
        for (auto child = owned.rbegin(); child != owned.rend(); ++child) {
            ModelObject next;
            next.object = child->second;
            next.depth = described.depth + 1;
            next.owner = list.size();
            next.ownerProperty = child->first;
            work.push_back(std::move(next));
        }
        list.push_back(std::move(described));
    }
}

/// Everything but the position, so that it can be compared.
std::string contentOf(const ModelObject& described) {
    std::ostringstream text;
    text << described.depth << ' ' << described.ownerProperty << ' '
         << described.object->getClassName() << ' ' << described.object->getInstanceUID();
    for (const auto& property : described.properties) {
        text << '\n' << property.name;
        for (const std::string& value : property.values) {
            text << ' ' << value.size() << ' ' << value;
        }
    }
    for (const auto& [key, bytes] : described.darkProperties) {
        text << '\n' << key << ' ' << std::string(bytes.begin(), bytes.end());
    }
    return text.str();
}

} // namespace

void MetadataCollector::startMetadata() {
    metadata_ = {};
    content_.clear();
}

void MetadataCollector::model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) {
    for (const auto& root : roots) {
        appendTree(root, metadata_.objects);
    }
    for (const ModelObject& object : metadata_.objects) {
        content_ += contentOf(object) + '\n';
    }
}

void MetadataCollector::xmlMetadata(const char* data, std::size_t size) {
    constexpr std::size_t longest = 200;
    const std::string_view document(data, size);
    const std::size_t end = std::min(longest, document.find_first_of("\r\n"));
    metadata_.documents.push_back({size, std::string(document.substr(0, end))});
    content_ += document;
}

void MetadataCollector::endMetadata() {
    if (!all_ && !content_.empty() && content_ == lastContent_) {
        metadata_ = {};
        metadata_.sameAs = lastPartition_;
    } else {
        lastContent_ = std::move(content_);
        lastPartition_ = partition_;
    }
    receiver_(metadata_);
    metadata_ = {};
}
