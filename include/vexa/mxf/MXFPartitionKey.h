#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

inline namespace vexa_toolkit {

/// The keys of partition packs (SMPTE 377M, partition pack key): constants, and what a key says of
/// its partition.
class VEXA_EXPORT MXFPartitionKey {
public:
    static const KLVKey openIncompleteHeader;
    static const KLVKey closedIncompleteHeader;
    static const KLVKey openCompleteHeader;
    static const KLVKey closedCompleteHeader;
    static const KLVKey openIncompleteBody;
    static const KLVKey closedIncompleteBody;
    static const KLVKey openCompleteBody;
    static const KLVKey closedCompleteBody;
    static const KLVKey closedIncompleteFooter;
    static const KLVKey closedCompleteFooter;

    /// True for the key of a header, body or footer partition pack in any status. A registry
    /// version of 00 is refused, any other accepted.
    static bool isPartitionKey(const KLVKey& key);

    /// The rest throw util::assertion_failure "valid partition key" for any other key.
    static bool isHeader(const KLVKey& key);
    static bool isBody(const KLVKey& key);
    static bool isFooter(const KLVKey& key);
    static bool isClosed(const KLVKey& key);
    static bool isComplete(const KLVKey& key);
};

} // namespace vexa_toolkit
