#include "support/KLVBytes.h"

#include "util/hex.h"

#include <algorithm>

KLVBytes& KLVBytes::raw(std::initializer_list<int> bytes) {
    for (const int byte : bytes) {
        bytes_.push_back(static_cast<std::uint8_t>(byte));
    }
    return *this;
}

KLVBytes& KLVBytes::raw(const Bytes& bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return *this;
}

KLVBytes& KLVBytes::counting(std::size_t size, int first) {
    for (std::size_t i = 0; i < size; ++i) {
        bytes_.push_back(static_cast<std::uint8_t>(static_cast<std::size_t>(first) + i));
    }
    return *this;
}

KLVBytes& KLVBytes::number(std::uint64_t value, int octets) {
    for (int shift = 8 * (octets - 1); shift >= 0; shift -= 8) {
        bytes_.push_back(static_cast<std::uint8_t>(value >> shift));
    }
    return *this;
}

KLVBytes& KLVBytes::key(const KLVKey& key) {
    bytes_.insert(bytes_.end(), key.bytes.begin(), key.bytes.end());
    return *this;
}

KLVBytes& KLVBytes::length(std::uint64_t value, int form) {
    if (form == 1) {
        return number(value, 1);
    }
    return raw({form}).number(value, form & 0x7F);
}

KLVBytes& KLVBytes::klv(const KLVKey& key, const Bytes& value, int form) {
    return this->key(key).length(value.size(), form).raw(value);
}

KLVBytes& KLVBytes::fill(std::size_t valueSize, int form) {
    const KLVKey key = smpteKey({1, 1, 1, 1, 3, 1, 2, 0x10, 1});
    return klv(key, Bytes(valueSize), form);
}

KLVKey smpteKey(std::initializer_list<int> rest) {
    KLVKey key{{0x06, 0x0E, 0x2B, 0x34}};
    std::transform(rest.begin(), rest.end(), key.bytes.begin() + 4,
                   [](int byte) { return static_cast<std::uint8_t>(byte); });
    return key;
}

const KLVKey someItemKey = smpteKey({1, 1, 1, 1, 0x7E, 1});
const KLVKey someLabelKey = smpteKey({4, 1, 1, 1, 0x7E, 2});
const KLVKey someUniversalSetKey = smpteKey({2, 1, 1, 1, 0x7E, 3});
const KLVKey someLocalSetKey = smpteKey({2, 0x53, 1, 1, 0x7E, 4});
const KLVKey someVariablePackKey = smpteKey({2, 4, 1, 1, 0x7E, 5});
const KLVKey someFixedPackKey = smpteKey({2, 5, 1, 1, 0x7E, 6});
const KLVKey someWrapperKey = smpteKey({3, 1, 1, 1, 0x7E, 7});

const KLVKey keyA = smpteKey({1, 1, 1, 1, 0x0A});
const KLVKey keyB = smpteKey({1, 1, 1, 1, 0x0B});
const KLVKey versionKey = smpteKey({1, 1, 1, 2, 3, 1, 2, 1, 5});
const KLVKey instanceKey = smpteKey({1, 1, 1, 1, 1, 1, 0x15, 2});

KLVKey partitionKey(int kind, int status) {
    return smpteKey({2, 5, 1, 1, 0x0D, 1, 2, 1, 1, kind, status, 0});
}

const KLVKey randomIndexKey = partitionKey(0x11, 1);

Bytes batch(std::uint32_t count, std::uint32_t elementSize, std::size_t bytes) {
    return KLVBytes().number(count, 4).number(elementSize, 4).counting(bytes).bytes();
}

std::string hex(const std::uint8_t* bytes, std::size_t size) {
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
        text += util::hexByte(bytes[i]);
    }
    return text;
}

KLVBytes partitionValue(const MXFPartitionPack& pack) {
    KLVBytes value;
    value.number(pack.majorVersion, 2).number(pack.minorVersion, 2).number(pack.kagSize, 4);
    value.number(pack.thisPartition, 8).number(pack.previousPartition, 8);
    value.number(pack.footerPartition, 8).number(pack.headerByteCount, 8);
    value.number(pack.indexByteCount, 8).number(pack.indexSID, 4).number(pack.bodyOffset, 8);
    value.number(pack.bodySID, 4).key(pack.operationalPattern);
    value.number(pack.essenceContainers.size(), 4).number(16, 4);
    for (const KLVKey& container : pack.essenceContainers) {
        value.key(container);
    }
    return value;
}

KLVBytes randomIndexValue(const MXFRandomIndex& table, std::uint32_t overallLength) {
    KLVBytes value;
    for (const MXFRandomIndexEntry& entry : table) {
        value.number(entry.bodySID, 4).number(entry.byteOffset, 8);
    }
    return value.number(overallLength, 4);
}

KLVBytes randomIndexPack(const MXFRandomIndex& table) {
    const auto overallLength = static_cast<std::uint32_t>(16 + 4 + 12 * table.size() + 4);
    return KLVBytes().klv(randomIndexKey, randomIndexValue(table, overallLength));
}
