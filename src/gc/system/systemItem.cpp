#include "gc/system/systemItem.h"

#include "klv/KLVKeyMask.h"
#include "metadata/model/codec.h"

inline namespace vexa_toolkit {

namespace gcsystem {

namespace {

constexpr std::size_t packSize = 57;

constexpr KLVKey metadataSet = "060E2B34.02430101.0D010301.04010000"_key;
constexpr KLVKey controlData = "060E2B34.02630101.0D010301.04010600"_key;
constexpr KLVKeyMask metadataSetMask(metadataSet, kindByte);
constexpr KLVKeyMask controlDataMask(controlData, kindByte);

/// Visits the fields in the order of the wire.
template <class Pack, class Visit> void visitFields(Pack& pack, Visit visit) {
    visit(pack.systemMetadataBitmap);
    visit(pack.contentPackageRate);
    visit(pack.contentPackageType);
    visit(pack.channelHandle);
    visit(pack.continuityCount);
    visit(pack.essenceContainer);
    visit(pack.creationStamp);
    visit(pack.userStamp);
}

} // namespace

bool isSystemSet(const KLVKey& key) {
    return metadataSetMask.matches(key) || controlDataMask.matches(key);
}

std::optional<SystemSet> kindOf(const KLVKey& key) {
    const auto kind = static_cast<SystemSet>(key[kindByte]);
    const bool known = metadataSetMask.matches(key)
                           ? kind >= SystemSet::Package && kind <= SystemSet::Data
                           : controlDataMask.matches(key) && kind == SystemSet::Control;
    return known ? std::optional(kind) : std::nullopt;
}

KLVKey keyOf(SystemSet kind, std::size_t itemCount) {
    if (kind == SystemSet::Control) {
        return controlData;
    }
    KLVKey key = metadataSet;
    key[kindByte] = static_cast<std::uint8_t>(kind);
    key[countByte] = static_cast<std::uint8_t>(itemCount);
    return key;
}

MXFSDTICPSystemMetadata decodeSystemMetadata(const MXFGCSystemHandler::Bytes& value) {
    util::check(value.size() == packSize, "valid external length");
    util::byte_reader in(value);
    MXFSDTICPSystemMetadata pack;
    visitFields(pack, [&in](auto& field) { metadata::decode(in, field); });
    return pack;
}

MXFGCSystemHandler::Bytes encodeSystemMetadata(const MXFSDTICPSystemMetadata& pack) {
    MXFGCSystemHandler::Bytes value;
    value.reserve(packSize);
    visitFields(pack, [&value](const auto& field) { metadata::encode(value, field); });
    return value;
}

} // namespace gcsystem

} // namespace vexa_toolkit
