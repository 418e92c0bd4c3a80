#pragma once

#include "support/KLVBytes.h"

#include <vector>

/// One partition of a file under construction.
struct FilePartition {
    /// 2 header, 3 body, 4 footer.
    int kind = 3;
    MXFPartitionPack pack;
    KLVBytes header;
    KLVBytes index;
    KLVBytes body;
    /// An empty fill item stands behind the pack: both take 128 bytes without essence containers.
    bool packFill = true;
    int status = 4;
};

/// Builds a whole file. `layOut` makes the packs true; whatever is changed after it stays a lie.
struct FileBuilder {
    KLVBytes runIn;
    std::vector<FilePartition> partitions;
    bool hasRandomIndex = true;
    /// Behind everything else.
    KLVBytes tail;

    /// Sets offsets and byte counts in all packs.
    FileBuilder& layOut();
    /// Of the partitions as they lie, whatever their packs say.
    MXFRandomIndex randomIndex() const;
    KLVBytes bytes() const;
};

/// A header partition with metadata, a body partition with index and essence, a footer partition
/// and a random index of 60 bytes; 574 bytes in which a validator finds nothing wrong.
FileBuilder soundFile();

/// An element of some individual item, whole: 20 bytes more than its value.
KLVBytes someItem(std::size_t valueSize);

/// A whole element that lies in some bytes: where its key and its value begin, and where it ends.
struct WalkedElement {
    KLVKey key;
    std::size_t offset;
    std::size_t value;
    std::size_t end;
};

/// The elements one after another, labels excepted, up to one that isn't whole.
std::vector<WalkedElement> walkKLV(const Bytes& bytes, std::size_t start = 0);

/// A big-endian number among some bytes.
std::uint64_t numberAt(const Bytes& bytes, std::size_t offset, std::size_t octets);
