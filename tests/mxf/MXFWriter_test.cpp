#include "klv/writeElements.h"
#include "support/Testing.h"

namespace {

MXFPartitionPack packOf(std::uint32_t kagSize) {
    MXFPartitionPack pack;
    pack.minorVersion = 3;
    pack.kagSize = kagSize;
    pack.operationalPattern = smpteKey({0x04, 0x01, 0x01, 0x01, 0x0D, 0x01, 0x02, 0x01});
    pack.essenceContainers = {smpteKey({0x04, 0x01, 0x01, 0x02, 0x0D, 0x01, 0x03, 0x01})};
    return pack;
}

/// One stream with one item of that many bytes.
void section(KLVHandler& handler, std::size_t size) {
    handler.startStream(true);
    handler.berLengthForm(0x83);
    klvutil::writeIndividualItem(handler, someItemKey, KLVBytes().counting(size).bytes().data(),
                                 size);
    handler.endStream(false);
}

/// A header with metadata, a body with index and essence, without a grid, and a footer.
void writeFile(MXFWriter& writer) {
    MXFStructureHandler& structure = writer.getStructureHandler();
    structure.startStructure();

    MXFPartitionPack header = packOf(256);
    header.headerByteCount = 256;
    header.footerPartition = 1095;
    structure.startPartition(MXFPartitionKey::closedCompleteHeader, header, 0);
    section(writer.getMetadataHandler(), 100);
    structure.endPartition(MXFPartitionKey::closedCompleteHeader);

    MXFPartitionPack body = packOf(0);
    body.indexByteCount = 55;
    body.indexSID = 2;
    body.bodySID = 1;
    body.footerPartition = 1095;
    structure.startPartition(MXFPartitionKey::closedCompleteBody, body, 384);
    section(writer.getIndexHandler(), 35);
    section(writer.getEssenceHandler(), 124);
    structure.endPartition(MXFPartitionKey::closedCompleteBody);

    structure.startPartition(MXFPartitionKey::closedCompleteFooter, packOf(0), 0);
    structure.endPartition(MXFPartitionKey::closedCompleteFooter);
    structure.randomIndex({});
    structure.endStructure(false);
}

KLVBytes packBytes(int kind, MXFPartitionPack pack, std::uint64_t thisPartition,
                   std::uint64_t previousPartition) {
    pack.thisPartition = thisPartition;
    pack.previousPartition = previousPartition;
    pack.footerPartition = 1095;
    return KLVBytes().klv(partitionKey(kind, 4), partitionValue(pack)); // 20 + 104 bytes
}

KLVBytes expectedFile() {
    MXFPartitionPack header = packOf(256);
    header.headerByteCount = 256;
    MXFPartitionPack body = packOf(0);
    body.indexByteCount = 55;
    body.indexSID = 2;
    body.bodySID = 1;
    return KLVBytes()
        .raw(packBytes(2, header, 0, 0))
        .fill(256 - 124 - 20) // to the grid
        .klv(someItemKey, KLVBytes().counting(100))
        .fill(256 - 120 - 20) // to the header byte count
        .raw(packBytes(3, body, 512, 0))
        .fill(384 - 124 - 20) // to the pack byte count
        .klv(someItemKey, KLVBytes().counting(35))
        .klv(someItemKey, KLVBytes().counting(124))
        .raw(packBytes(4, packOf(0), 1095, 512))
        .raw(randomIndexPack({{0, 0}, {1, 512}, {0, 1095}}));
}

TEST(MXFWriter, WritesPacksSectionsAndFill) {
    std::ostringstream stream;
    MXFWriter writer(stream);
    writeFile(writer);
    EXPECT_EQ(expectedFile().text(), stream.str());

    writeFile(writer); // another structure begins anew
    EXPECT_EQ(expectedFile().text() + expectedFile().text(), stream.str());
}

TEST(MXFWriter, SendsItsEventsElsewhere) {
    std::ostringstream stream;
    std::ostringstream elsewhere;
    MXFWriter writer(stream);
    MXFWriter other(elsewhere);
    KLVHandler* const own = &writer.getHandler();
    writer.setHandler(&other.getHandler());
    writeFile(writer);
    EXPECT_EQ(expectedFile().text(), elsewhere.str());
    EXPECT_EQ("", stream.str());
    writer.resetHandler();
    EXPECT_EQ(own, &writer.getHandler());
}

TEST(MXFWriter, RefusesWhatCannotBeLaidOut) {
    const auto start = [](const KLVKey& key, std::uint64_t packByteCount, auto change) {
        return [=] {
            std::ostringstream stream;
            MXFWriter writer(stream);
            MXFPartitionPack pack = packOf(512);
            change(pack);
            writer.getStructureHandler().startStructure();
            writer.getStructureHandler().startPartition(MXFPartitionKey::openCompleteHeader,
                                                        packOf(512), 0);
            writer.getStructureHandler().startPartition(key, pack, packByteCount);
            section(writer.getMetadataHandler(), 100);
        };
    };
    const KLVKey body = MXFPartitionKey::openCompleteBody;
    expectFailures({
        {"header byte count is a multiple of KAG size",
         start(body, 0, [](auto& pack) { pack.headerByteCount = 513; })},
        {"index byte count is a multiple of KAG size",
         start(body, 0, [](auto& pack) { pack.indexByteCount = 511; })},
        {"valid footer partition offset",
         start(body, 0, [](auto& pack) { pack.footerPartition = 512; })},
        {"valid footer partition offset", start(MXFPartitionKey::closedCompleteFooter, 0,
                                                [](auto& pack) { pack.footerPartition = 513; })},
        {"padded length is multiple of alignment", start(body, 1000, [](auto&) {})},
        // Nothing was announced, and something comes.
        {"achievable padded length", start(body, 1024, [](auto& pack) { pack.kagSize = 4; })},
        {"achievable padded length", start(body, 120, [](auto& pack) { pack.kagSize = 4; })},
        // The section leaves a gap of 8 bytes.
        {"achievable padded length", start(body, 0,
                                           [](auto& pack) {
                                               pack.kagSize = 128;
                                               pack.headerByteCount = 128;
                                           })},
        {"", start(body, 0, [](auto& pack) { pack.headerByteCount = 512; })},
        {"", start(MXFPartitionKey::closedCompleteFooter, 0,
                   [](auto& pack) {
                       pack.headerByteCount = 512;
                       pack.footerPartition = 512;
                   })},
    });
}

TEST(MXFWriter, SaysWhereItsStreamFails) {
    /// Takes so many bytes.
    struct Sink : std::streambuf {
        std::streamsize room;
        explicit Sink(std::size_t size) : room(static_cast<std::streamsize>(size)) {}
        std::streamsize xsputn(const char*, std::streamsize size) override {
            const std::streamsize taken = std::min(size, room);
            room -= taken;
            return taken;
        }
        int_type overflow(int_type byte) override {
            return room-- > 0 ? traits_type::not_eof(byte) : traits_type::eof();
        }
    };
    for (std::size_t size = 0; size < expectedFile().size(); ++size) {
        EXPECT_EQ("successful write()", failureOf([=] {
                      Sink sink(size);
                      std::ostream stream(&sink);
                      MXFWriter writer(stream);
                      writeFile(writer);
                  }))
            << size;
    }
}

} // namespace
