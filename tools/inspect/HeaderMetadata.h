#pragma once

#include <vexa/vexa.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// An object of a model, with what there is to print of it.
struct ModelObject {
    struct Property {
        const char* name;
        metadata::ValueKind kind;
        bool isList;
        std::vector<std::string> values;
    };

    boost::shared_ptr<const MetadataRoot> object;
    std::size_t depth = 0;
    /// The place of its owner in the list, and the property that holds it; none for a root.
    std::optional<std::size_t> owner;
    std::string ownerProperty;

    /// All but the objects that it owns, dark ones and the instance UID.
    std::vector<Property> properties;
    std::vector<std::pair<KLVKey, std::vector<std::uint8_t>>> darkProperties;
};

/// A sidecar document.
struct Document {
    std::uint64_t size;
    std::string firstLine;
};

/// The header metadata of a partition.
struct HeaderMetadata {
    /// The number of the partition that has the same; nothing else is told then.
    std::optional<unsigned> sameAs;
    /// Each root, with what it owns behind it.
    std::vector<ModelObject> objects;
    std::vector<Document> documents;
};

/// Makes the header metadata of each partition to something that can be printed.
class MetadataCollector : public VEXAMetadataHandler {
public:
    using Receiver = std::function<void(const HeaderMetadata&)>;

    /// With `all`, what is repeated unchanged is told again.
    MetadataCollector(bool all, Receiver receiver) : all_(all), receiver_(std::move(receiver)) {}

    /// The number of the partition that what follows stands in.
    void setPartition(unsigned number) { partition_ = number; }

    void startMetadata() override;
    void endMetadata() override;
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override;
    void xmlMetadata(const char* data, std::size_t size) override;

private:
    bool all_;
    Receiver receiver_;
    unsigned partition_ = 0;
    HeaderMetadata metadata_;
    /// All that there is in it, positions aside.
    std::string content_;
    std::string lastContent_;
    unsigned lastPartition_ = 0;
};
