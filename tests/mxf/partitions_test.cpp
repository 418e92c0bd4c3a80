// The keys of partition packs, and the values of partition and random index packs on the wire.

#include "klv/berLength.h"
#include "mxf/partitionPack.h"
#include "mxf/randomIndex.h"
#include "support/Testing.h"

namespace {

using Key = MXFPartitionKey;

const KLVKey somePattern = smpteKey({4, 1, 1, 1, 0x0D, 1, 2, 1, 1, 1, 9});
const KLVKey someContainer = smpteKey({4, 1, 1, 2, 0x0D, 1, 3, 1, 2, 4, 0x60, 1});

/// The value of a pack with that batch of essence containers.
KLVBytes packWithBatch(std::uint32_t count, std::uint32_t entrySize, std::size_t bytes) {
    KLVBytes value;
    value.raw(Bytes(64)).key(somePattern).number(count, 4).number(entrySize, 4);
    return value.counting(bytes);
}

std::string decodeFailure(const Bytes& value) {
    return failureOf([&] { mxf::decodePartitionPack(value); });
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
            EXPECT_TRUE(Key::isPartitionKey(key));
            EXPECT_EQ(kind == 2, Key::isHeader(key));
            EXPECT_EQ(kind == 3, Key::isBody(key));
            EXPECT_EQ(kind == 4, Key::isFooter(key));
            EXPECT_EQ(status == 2 || status == 4, Key::isClosed(key));
            EXPECT_EQ(status >= 3, Key::isComplete(key));
        }
    }
    const KLVKey* const constants[] = {&Key::openIncompleteHeader,
                                       &Key::closedIncompleteHeader,
                                       &Key::openCompleteHeader,
                                       &Key::closedCompleteHeader,
                                       &Key::openIncompleteBody,
                                       &Key::closedIncompleteBody,
                                       &Key::openCompleteBody,
                                       &Key::closedCompleteBody,
                                       nullptr,
                                       &Key::closedIncompleteFooter,
                                       nullptr,
                                       &Key::closedCompleteFooter};
    for (int i = 0; i < 12; ++i) {
        if (constants[i] != nullptr) {
            EXPECT_EQ(partitionKey(2 + i / 4, 1 + i % 4).bytes, constants[i]->bytes) << i;
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
        EXPECT_FALSE(Key::isPartitionKey(key));
        for (const auto tell :
             {Key::isHeader, Key::isBody, Key::isFooter, Key::isClosed, Key::isComplete}) {
            EXPECT_EQ("valid partition key", failureOf([&] { tell(key); }));
        }
    }
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

    // Every file that the tests build says by partitionValue() what its fields are.
    const MXFPartitionPack pack = mxf::decodePartitionPack(wire.bytes());
    EXPECT_EQ(wire.bytes(), partitionValue(pack).bytes());
    EXPECT_EQ(wire.bytes(), mxf::encodePartitionPack(pack));
    const KLVBytes unset = KLVBytes({0, 1, 0, 2}).raw(Bytes(76)).number(0, 4).number(16, 4);
    EXPECT_EQ(unset.bytes(), mxf::encodePartitionPack(MXFPartitionPack()));
}

TEST(PartitionPack, RefusesWhatIsNotOnePack) {
    EXPECT_EQ("", decodeFailure(packWithBatch(0, 0, 0).bytes()));
    EXPECT_EQ("valid external length", decodeFailure(packWithBatch(1, 16, 17).bytes()));
    EXPECT_EQ("valid external length", decodeFailure(packWithBatch(1, 15, 16).bytes()));
    EXPECT_EQ("successful seekg()", decodeFailure(packWithBatch(1, 17, 16).bytes()));
    // Cut anywhere: in the integers before the pattern, in the pattern, in the head of the batch,
    // in an entry.
    Bytes value = packWithBatch(1, 16, 16).bytes();
    ASSERT_EQ("", decodeFailure(value));
    while (!value.empty()) {
        value.pop_back();
        const bool inKey = (value.size() >= 64 && value.size() < 80) || value.size() >= 88;
        EXPECT_EQ(inKey ? "successful read()" : "successful get()", decodeFailure(value));
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
    EXPECT_EQ(16 + 1 + 28, mxf::encodeRandomIndex(table, 1).back());
    EXPECT_EQ(16 + 9 + 28, mxf::encodeRandomIndex(table, 0x88).back());

    for (const std::size_t size : {0U, 3U, 5U, 15U, 17U}) {
        EXPECT_EQ("valid external length",
                  decodeIndexFailure(KLVBytes().raw(Bytes(size)), klvutil::noBERForm));
    }
    const KLVBytes entry = KLVBytes().number(1, 4).number(2, 8);
    EXPECT_EQ("", decodeIndexFailure(KLVBytes(entry).number(36, 4), 0x83));
    EXPECT_EQ("", decodeIndexFailure(KLVBytes(entry).number(0xFFFFFFFF, 4), klvutil::noBERForm));
    EXPECT_EQ("correct overall length", decodeIndexFailure(KLVBytes(entry).number(35, 4), 0x83));
    EXPECT_EQ("correct overall length", decodeIndexFailure(KLVBytes(entry).number(37, 4), 0x83));
    EXPECT_EQ("correct overall length", decodeIndexFailure(KLVBytes(entry).number(36, 4), 0x84));
}
