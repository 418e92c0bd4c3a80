#pragma once

#include <vexa/klv/KLVKey.h>
#include <vexa/mxf/MXFPartitionPack.h>
#include <vexa/mxf/MXFRandomIndex.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

/// Builds the bytes of a KLV stream, with nothing of the library's own coding, so that it can be
/// held against it.
class KLVBytes {
public:
    KLVBytes() = default;
    explicit KLVBytes(std::initializer_list<int> bytes) { raw(bytes); }
    KLVBytes(Bytes bytes) : bytes_(std::move(bytes)) {}

    KLVBytes& raw(std::initializer_list<int> bytes);
    KLVBytes& raw(const Bytes& bytes);
    KLVBytes& raw(const KLVBytes& other) { return raw(other.bytes()); }
    /// `size` bytes that count up from `first`.
    KLVBytes& counting(std::size_t size, int first = 0);
    /// The `octets` low bytes of a number, big-endian.
    KLVBytes& number(std::uint64_t value, int octets);
    KLVBytes& key(const KLVKey& key);
    /// A BER length: form 1 is the short form, 0x81 to 0x88 the long one.
    KLVBytes& length(std::uint64_t value, int form = 0x83);
    /// Key, length, value.
    KLVBytes& klv(const KLVKey& key, const Bytes& value, int form = 0x83);
    KLVBytes& klv(const KLVKey& key, const KLVBytes& value, int form = 0x83) {
        return klv(key, value.bytes(), form);
    }
    /// A fill item with that many zero bytes.
    KLVBytes& fill(std::size_t valueSize, int form = 0x83);

    const Bytes& bytes() const { return bytes_; }
    std::size_t size() const { return bytes_.size(); }
    std::string text() const { return {bytes_.begin(), bytes_.end()}; }

private:
    Bytes bytes_;
};

/// 06 0E 2B 34, then the given bytes, then zeros.
KLVKey smpteKey(std::initializer_list<int> rest);

// Keys of each form that mean nothing to the library.
extern const KLVKey someItemKey;
extern const KLVKey someLabelKey;
extern const KLVKey someUniversalSetKey;
/// 2-octet tags, 2-octet lengths.
extern const KLVKey someLocalSetKey;
/// BER lengths.
extern const KLVKey someVariablePackKey;
extern const KLVKey someFixedPackKey;
extern const KLVKey someWrapperKey;

// Of properties: two that mean nothing to the library, and two that it knows.
extern const KLVKey keyA;
extern const KLVKey keyB;
extern const KLVKey versionKey;
extern const KLVKey instanceKey;

/// The key of a partition pack: kind 2 header, 3 body, 4 footer; status 1 to 4.
KLVKey partitionKey(int kind, int status);
extern const KLVKey randomIndexKey;

/// The counts of a batch and, behind them, that many bytes that count up.
Bytes batch(std::uint32_t count, std::uint32_t elementSize, std::size_t bytes);

/// Upper-case digits, two for each byte.
std::string hex(const std::uint8_t* bytes, std::size_t size);
inline std::string hex(const Bytes& bytes) {
    return hex(bytes.data(), bytes.size());
}

KLVBytes partitionValue(const MXFPartitionPack& pack);
KLVBytes randomIndexValue(const MXFRandomIndex& table, std::uint32_t overallLength);
/// The whole pack, with a BER length of 4 octets.
KLVBytes randomIndexPack(const MXFRandomIndex& table);
