// The keys of partition packs, and the values of partition and random index packs on the wire.

#include "mxf/partitionPack.h"
#include "mxf/randomIndex.h"
#include "support/Failures.h"
#include "support/KLVBytes.h"

#include <gtest/gtest.h>
#include <vexa/vexa.h>

namespace {

using Bytes = KLVBytes::Bytes;

const KLVKey somePattern = smpteKey({4, 1, 1, 1, 0x0D, 1, 2, 1, 1, 1, 9});
const KLVKey someContainer = smpteKey({4, 1, 1, 2, 0x0D, 1, 3, 1, 2, 4, 0x60, 1});

/// The value of a pack with that batch of essence containers.
KLVBytes packWithBatch(std::uint32_t count, std::uint32_t entrySize, std::size_t bytes) {
    KLVBytes value;
    value.raw(Bytes(64)).key(somePattern).number(count, 4).number(entrySize, 4);
    return value.counting(bytes);
}

std::string decodeFailure(const KLVBytes& value) {
    return failureOf([&] { mxf::decodePartitionPack(value.bytes()); });
}

std::string decodeIndexFailure(const KLVBytes& value, int form) {
    return failureOf(
        [&] { mxf::decodeRandomIndex(value.bytes(), static_cast<std::uint8_t>(form)); });
}

} // namespace

TEST(MXFPartitionKey, TellsKindAndStatus) {
    for (int kind = 2; kind <= 4; ++kind) {
        for (int status = 1; status <= 4; ++status) {
            KLVKey key = partitionKey(kind, status);
            key[7] = static_cast<std::uint8_t>(kind);
            SCOPED_TRACE(testing::Message() << key);
            EXPECT_TRUE(MXFPartitionKey::isPartitionKey(key));
            EXPECT_EQ(kind == 2, MXFPartitionKey::isHeader(key));
            EXPECT_EQ(kind == 3, MXFPartitionKey::isBody(key));
            EXPECT_EQ(kind == 4, MXFPartitionKey::isFooter(key));
            EXPECT_EQ(status == 2 || status == 4, MXFPartitionKey::isClosed(key));
            EXPECT_EQ(status >= 3, MXFPartitionKey::isComplete(key));
        }
    }
}

TEST(MXFPartitionKey, RefusesAnyOtherKey) {
    const struct {
        std::size_t at;
        int byte;
    } changes[] = {{0, 7},  {4, 1},  {5, 4},   {7, 0},  {8, 0x0E}, {12, 0},
                   {13, 1}, {13, 5}, {13, 17}, {14, 0}, {14, 5},   {15, 1}};
    for (const auto& change : changes) {
        KLVKey key = partitionKey(2, 4);
        key[change.at] = static_cast<std::uint8_t>(change.byte);
        SCOPED_TRACE(testing::Message() << key);
        EXPECT_FALSE(MXFPartitionKey::isPartitionKey(key));
        for (const auto tell :
             {MXFPartitionKey::isHeader, MXFPartitionKey::isBody, MXFPartitionKey::isFooter,
              MXFPartitionKey::isClosed, MXFPartitionKey::isComplete}) {
            EXPECT_EQ("valid partition key", failureOf([&] { tell(key); }));
        }
    }
}

TEST(MXFPartitionKey, ConstantsAreTheirKeys) {
    using Key = MXFPartitionKey;
    EXPECT_EQ(partitionKey(2, 1).bytes, Key::openIncompleteHeader.bytes);
    EXPECT_EQ(partitionKey(2, 2).bytes, Key::closedIncompleteHeader.bytes);
    EXPECT_EQ(partitionKey(2, 3).bytes, Key::openCompleteHeader.bytes);
    EXPECT_EQ(partitionKey(2, 4).bytes, Key::closedCompleteHeader.bytes);
    EXPECT_EQ(partitionKey(3, 1).bytes, Key::openIncompleteBody.bytes);
    EXPECT_EQ(partitionKey(3, 2).bytes, Key::closedIncompleteBody.bytes);
    EXPECT_EQ(partitionKey(3, 3).bytes, Key::openCompleteBody.bytes);
    EXPECT_EQ(partitionKey(3, 4).bytes, Key::closedCompleteBody.bytes);
    EXPECT_EQ(partitionKey(4, 2).bytes, Key::closedIncompleteFooter.bytes);
    EXPECT_EQ(partitionKey(4, 4).bytes, Key::closedCompleteFooter.bytes);
}

TEST(PartitionPack, StandsOnTheWireFieldByField) {
    KLVBytes wire;
    wire.raw({0x00, 0x01, 0x00, 0x03});                         // majorVersion, minorVersion
    wire.raw({0x00, 0x00, 0x02, 0x00});                         // kagSize
    wire.raw({0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08}); // thisPartition
    wire.raw({0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18}); // previousPartition
    wire.raw({0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28}); // footerPartition
    wire.raw({0xFF, 0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38}); // headerByteCount
    wire.raw({0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48}); // indexByteCount
    wire.raw({0xFE, 0x52, 0x53, 0x54});                         // indexSID
    wire.raw({0x61, 0x62, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68}); // bodyOffset
    wire.raw({0x71, 0x72, 0x73, 0x74});                         // bodySID
    wire.key(somePattern);
    wire.raw({0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x10}); // 2 containers of 16 bytes
    wire.key(someContainer).key(somePattern);

    const MXFPartitionPack pack = mxf::decodePartitionPack(wire.bytes());
    EXPECT_EQ(1, pack.majorVersion);
    EXPECT_EQ(3, pack.minorVersion);
    EXPECT_EQ(512U, pack.kagSize);
    EXPECT_EQ(0x0102030405060708U, pack.thisPartition);
    EXPECT_EQ(0x1112131415161718U, pack.previousPartition);
    EXPECT_EQ(0x2122232425262728U, pack.footerPartition);
    EXPECT_EQ(0xFF32333435363738U, pack.headerByteCount);
    EXPECT_EQ(0x4142434445464748U, pack.indexByteCount);
    EXPECT_EQ(0xFE525354U, pack.indexSID);
    EXPECT_EQ(0x6162636465666768U, pack.bodyOffset);
    EXPECT_EQ(0x71727374U, pack.bodySID);
    EXPECT_EQ(somePattern.bytes, pack.operationalPattern.bytes);
    ASSERT_EQ(2U, pack.essenceContainers.size());
    EXPECT_EQ(someContainer.bytes, pack.essenceContainers[0].bytes);
    EXPECT_EQ(somePattern.bytes, pack.essenceContainers[1].bytes);
    EXPECT_EQ(wire.bytes(), mxf::encodePartitionPack(pack));

    const KLVBytes unset = KLVBytes({0, 1, 0, 2}).raw(Bytes(76)).number(0, 4).number(16, 4);
    EXPECT_EQ(unset.bytes(), mxf::encodePartitionPack(MXFPartitionPack()));
}

TEST(PartitionPack, BatchEntriesMayBeLonger) {
    const KLVBytes wire = KLVBytes(packWithBatch(2, 24, 0))
                              .key(someContainer)
                              .counting(8)
                              .key(somePattern)
                              .counting(8);
    const std::vector<KLVKey> containers = mxf::decodePartitionPack(wire.bytes()).essenceContainers;
    ASSERT_EQ(2U, containers.size());
    EXPECT_EQ(someContainer.bytes, containers[0].bytes);
    EXPECT_EQ(somePattern.bytes, containers[1].bytes);

    EXPECT_EQ("", decodeFailure(packWithBatch(0, 0, 0)));
}

TEST(PartitionPack, RefusesWhatIsNotOnePack) {
    EXPECT_EQ("valid external length", decodeFailure(packWithBatch(0, 16, 1)));
    EXPECT_EQ("valid external length", decodeFailure(packWithBatch(1, 16, 17)));
    EXPECT_EQ("valid external length", decodeFailure(packWithBatch(1, 15, 16)));
    EXPECT_EQ("valid external length", decodeFailure(packWithBatch(1, 0, 16)));
    EXPECT_EQ("successful seekg()", decodeFailure(packWithBatch(1, 17, 16)));
    EXPECT_EQ("successful seekg()", decodeFailure(packWithBatch(1, 0xFFFFFFFF, 32)));
    EXPECT_EQ("successful read()", decodeFailure(packWithBatch(0xFFFFFFFF, 16, 160)));

    // Cut anywhere: in the integers before the pattern, in the pattern, in the head of the batch,
    // in an entry.
    const Bytes whole = packWithBatch(1, 16, 16).bytes();
    ASSERT_EQ("", failureOf([&] { mxf::decodePartitionPack(whole); }));
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const bool inKey = (size >= 64 && size < 80) || size >= 88;
        EXPECT_EQ(inKey ? "successful read()" : "successful get()",
                  failureOf([&] { mxf::decodePartitionPack(cut); }))
            << size << " bytes";
    }
}

TEST(RandomIndex, StandsOnTheWireEntryByEntry) {
    KLVBytes wire;
    wire.raw({0x00, 0x00, 0x00, 0x00});                         // bodySID
    wire.raw({0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}); // byteOffset
    wire.raw({0xF1, 0x02, 0x03, 0x04});
    wire.raw({0xF1, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18});
    wire.raw({0x00, 0x00, 0x00, 0x30}); // 16 key, 4 BER length, 28 value
    const MXFRandomIndex table = {{0, 0}, {0xF1020304, 0xF112131415161718}};
    EXPECT_EQ(table, mxf::decodeRandomIndex(wire.bytes(), 0x83));
    EXPECT_EQ(wire.bytes(), mxf::encodeRandomIndex(table, 0x83));

    for (const int form : {1, 0x81, 0x88}) {
        const auto used = static_cast<std::uint8_t>(form);
        EXPECT_EQ(table, mxf::decodeRandomIndex(mxf::encodeRandomIndex(table, used), used));
        EXPECT_EQ(static_cast<std::uint8_t>(16 + (form == 1 ? 1 : 1 + (form & 0x0F)) + 28),
                  mxf::encodeRandomIndex(table, used).back());
    }
    EXPECT_TRUE(mxf::decodeRandomIndex({0, 0, 0, 24}, 0x83).empty());
}

TEST(RandomIndex, RefusesWhatIsNotOneTable) {
    for (const std::size_t size : {0U, 1U, 2U, 3U, 5U, 12U, 15U, 17U, 27U}) {
        EXPECT_EQ("valid external length", decodeIndexFailure(KLVBytes().raw(Bytes(size)), 0))
            << size;
    }
    const MXFRandomIndex table = {{1, 2}};
    EXPECT_EQ("", decodeIndexFailure(randomIndexValue(table, 36), 0x83));
    EXPECT_EQ("", decodeIndexFailure(randomIndexValue(table, 0xFFFFFFFF), 0));
    for (const std::uint32_t length : {0U, 16U, 35U, 37U, 0xFFFFFFFFU}) {
        EXPECT_EQ("correct overall length",
                  decodeIndexFailure(randomIndexValue(table, length), 0x83))
            << length;
    }
    EXPECT_EQ("correct overall length", decodeIndexFailure(randomIndexValue(table, 36), 0x84));
}
