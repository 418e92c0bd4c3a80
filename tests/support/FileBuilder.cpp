#include "support/FileBuilder.h"

#include <algorithm>

namespace {

KLVBytes packBytes(const FilePartition& partition) {
    KLVBytes bytes;
    bytes.klv(partitionKey(partition.kind, partition.status), partitionValue(partition.pack));
    return partition.packFill ? bytes.fill(0) : bytes;
}

std::size_t sizeOf(const FilePartition& partition) {
    return packBytes(partition).size() + partition.header.size() + partition.index.size() +
           partition.body.size();
}

} // namespace

FileBuilder& FileBuilder::layOut() {
    std::uint64_t offset = 0;
    std::uint64_t previous = 0;
    std::uint64_t footer = 0;
    for (FilePartition& partition : partitions) {
        partition.pack.thisPartition = offset;
        partition.pack.previousPartition = previous;
        partition.pack.headerByteCount = partition.header.size();
        partition.pack.indexByteCount = partition.index.size();
        footer = partition.kind == 4 ? offset : footer;
        previous = offset;
        offset += sizeOf(partition);
    }
    for (FilePartition& partition : partitions) {
        partition.pack.footerPartition = footer;
    }
    return *this;
}

MXFRandomIndex FileBuilder::randomIndex() const {
    MXFRandomIndex table;
    std::uint64_t offset = 0;
    for (const FilePartition& partition : partitions) {
        table.push_back({partition.pack.bodySID, offset});
        offset += sizeOf(partition);
    }
    return table;
}

KLVBytes FileBuilder::bytes() const {
    KLVBytes bytes = runIn;
    for (const FilePartition& partition : partitions) {
        bytes.raw(packBytes(partition)).raw(partition.header).raw(partition.index);
        bytes.raw(partition.body);
    }
    if (hasRandomIndex) {
        bytes.raw(randomIndexPack(randomIndex()));
    }
    return bytes.raw(tail);
}

FileBuilder soundFile() {
    FileBuilder file;
    file.partitions.resize(3);
    FilePartition& header = file.partitions[0];
    header.kind = 2;
    header.header.klv(someLocalSetKey, KLVBytes({0x12, 0x34}).number(6, 2).counting(6)).fill(0);
    FilePartition& body = file.partitions[1];
    body.pack.indexSID = 2;
    body.pack.bodySID = 1;
    body.index.klv(someFixedPackKey, KLVBytes().counting(10));
    body.body = someItem(10).fill(0);
    file.partitions[2].kind = 4;
    return file.layOut();
}

KLVBytes someItem(std::size_t valueSize) {
    return KLVBytes().klv(someItemKey, KLVBytes().counting(valueSize));
}

std::vector<WalkedElement> walkKLV(const Bytes& bytes, std::size_t start) {
    std::vector<WalkedElement> elements;
    for (std::size_t offset = start; offset + 17 <= bytes.size(); offset = elements.back().end) {
        const std::uint8_t first = bytes[offset + 16];
        const std::size_t octets = first < 0x80 ? 0 : first & 0x7F;
        const std::size_t value = offset + 17 + octets;
        if (value > bytes.size()) {
            break;
        }
        const std::uint64_t length = octets == 0 ? first : numberAt(bytes, offset + 17, octets);
        if (length > bytes.size() - value) {
            break;
        }
        KLVKey key;
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(offset), KLVKey::size,
                    key.bytes.begin());
        elements.push_back({key, offset, value, value + static_cast<std::size_t>(length)});
    }
    return elements;
}

std::uint64_t numberAt(const Bytes& bytes, std::size_t offset, std::size_t octets) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < octets; ++i) {
        value = value << 8 | bytes[offset + i];
    }
    return value;
}
