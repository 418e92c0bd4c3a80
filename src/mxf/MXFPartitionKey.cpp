#include "klv/KLVKeyMask.h"
#include "mxf/keys.h"
#include "util/check.h"

#include <vexa/mxf/MXFPartitionKey.h>

inline namespace vexa_toolkit {

namespace {

using mxf::keys::structurePack;

constexpr std::size_t kindByte = 13;
constexpr std::size_t statusByte = 14;
constexpr std::size_t lastByte = 15;

enum Kind : std::uint8_t { Header = 2, Body = 3, Footer = 4 };
enum Status : std::uint8_t {
    OpenIncomplete = 1,
    ClosedIncomplete = 2,
    OpenComplete = 3,
    ClosedComplete = 4,
};

constexpr KLVKeyMask partitionMask() {
    KLVKeyMask mask(structurePack(Header, ClosedComplete));
    mask.mask[kindByte] = 0x00;
    mask.mask[statusByte] = 0x00;
    mask.mask[lastByte] = 0xFF;
    return mask;
}

std::uint8_t kindOf(const KLVKey& key) {
    util::check(MXFPartitionKey::isPartitionKey(key), "valid partition key");
    return key[kindByte];
}

std::uint8_t statusOf(const KLVKey& key) {
    util::check(MXFPartitionKey::isPartitionKey(key), "valid partition key");
    return key[statusByte];
}

} // namespace

const KLVKey MXFPartitionKey::openIncompleteHeader = structurePack(Header, OpenIncomplete);
const KLVKey MXFPartitionKey::closedIncompleteHeader = structurePack(Header, ClosedIncomplete);
const KLVKey MXFPartitionKey::openCompleteHeader = structurePack(Header, OpenComplete);
const KLVKey MXFPartitionKey::closedCompleteHeader = structurePack(Header, ClosedComplete);
const KLVKey MXFPartitionKey::openIncompleteBody = structurePack(Body, OpenIncomplete);
const KLVKey MXFPartitionKey::closedIncompleteBody = structurePack(Body, ClosedIncomplete);
const KLVKey MXFPartitionKey::openCompleteBody = structurePack(Body, OpenComplete);
const KLVKey MXFPartitionKey::closedCompleteBody = structurePack(Body, ClosedComplete);
const KLVKey MXFPartitionKey::closedIncompleteFooter = structurePack(Footer, ClosedIncomplete);
const KLVKey MXFPartitionKey::closedCompleteFooter = structurePack(Footer, ClosedComplete);

bool MXFPartitionKey::isPartitionKey(const KLVKey& key) {
    static constexpr KLVKeyMask mask = partitionMask();
    return mask.matches(key) && key[KLVKey::versionByte] != 0 && key[kindByte] >= Header &&
           key[kindByte] <= Footer && key[statusByte] >= OpenIncomplete &&
           key[statusByte] <= ClosedComplete;
}

bool MXFPartitionKey::isHeader(const KLVKey& key) {
    return kindOf(key) == Header;
}

bool MXFPartitionKey::isBody(const KLVKey& key) {
    return kindOf(key) == Body;
}

bool MXFPartitionKey::isFooter(const KLVKey& key) {
    return kindOf(key) == Footer;
}

bool MXFPartitionKey::isClosed(const KLVKey& key) {
    const std::uint8_t status = statusOf(key);
    return status == ClosedIncomplete || status == ClosedComplete;
}

bool MXFPartitionKey::isComplete(const KLVKey& key) {
    const std::uint8_t status = statusOf(key);
    return status == OpenComplete || status == ClosedComplete;
}

} // namespace vexa_toolkit
