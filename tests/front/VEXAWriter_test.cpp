#include "front/FillItemKeyModeStructureFilter.h"
#include "klv/fillItem.h"
#include "support/Testing.h"

namespace {

/// The aligner learns the grid of each partition.
class GridTeller : public DullMXFStructureHandler {
public:
    GridTeller(MXFStructureHandler& next, MXFGCElementAligner& aligner)
        : next_(next), aligner_(aligner) {}

    void startStructure() override { next_.startStructure(); }
    void endStructure(bool aborted) override { next_.endStructure(aborted); }
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override {
        aligner_.setKAGSize(pack.kagSize);
        next_.startPartition(key, pack, packByteCount);
    }
    void endPartition(const KLVKey& key) override { next_.endPartition(key); }
    void randomIndex(const MXFRandomIndex& table) override { next_.randomIndex(table); }

private:
    MXFStructureHandler& next_;
    MXFGCElementAligner& aligner_;
};

/// What a reader tells of the file, written by a writer.
Bytes rewritten(const Bytes& file) {
    const auto output = boost::make_shared<std::ostringstream>();
    const auto writer = createVEXAWriter(output);
    const auto aligner = boost::make_shared<MXFGCElementAligner>(*writer->getGCStructureHandler(),
                                                                 *writer->getEssenceHandler());
    const auto of = [&](auto* handler) {
        return boost::shared_ptr<std::remove_pointer_t<decltype(handler)>>(writer, handler);
    };
    const auto reader = createVEXAReader(boost::make_shared<TestStream>(file));
    reader->setStructureHandler(
        boost::make_shared<GridTeller>(*writer->getStructureHandler(), *aligner));
    reader->setMetadataHandler(of(writer->getMetadataHandler()));
    reader->setIndexHandler(of(writer->getIndexHandler()));
    reader->setGCStructureHandler(aligner);
    reader->setSDTICPSystemHandler(of(writer->getSDTICPSystemHandler()));
    reader->setEssenceHandler(aligner);
    reader->read();
    const std::string written = output->str();
    return {written.begin(), written.end()};
}

/// A file without the metadata and the index of its header partition, and without its random index:
/// the first writer codes its lengths, and a CBE segment without entries, in another way.
Bytes comparable(const Bytes& file) {
    constexpr std::size_t grid = 512; // the pack and its fill
    const std::size_t pack = KLVKey::size + 4;
    const std::size_t metadata = numberAt(file, pack + 32, 8) + numberAt(file, pack + 40, 8);
    Bytes rest(file.begin(), file.begin() + grid);
    for (const WalkedElement& element : walkKLV(file, grid + metadata)) {
        if (element.key != randomIndexKey) {
            rest.insert(rest.end(), file.begin() + static_cast<std::ptrdiff_t>(element.offset),
                        file.begin() + static_cast<std::ptrdiff_t>(element.end));
        }
    }
    return rest;
}

TEST(VEXAWriter, WritesTheFileThatItsEventsCameFrom) {
    for (const char* const name : {"longgop_25p_2ch.mxf", "longgop_2997_dropframe.mxf",
                                   "d10_30_625.mxf", "avc_longgop_50p.mxf"}) {
        SCOPED_TRACE(name);
        const Bytes file = testData(name);
        const Bytes first = rewritten(file);
        EXPECT_TRUE(comparable(file) == comparable(first));
        EXPECT_TRUE(first == rewritten(first)) << "its own file comes back whole";
    }
}

TEST(VEXAWriter, KnowsBeforehandHowLongSectionsGet) {
    const auto output = boost::make_shared<std::ostringstream>();
    const auto writer = createVEXAWriter(output);
    writer->setIndexAlignment(64);
    const auto tellMetadata = [](VEXAMetadataHandler& handler) {
        const auto preface = Preface::create();
        preface->setVersion(0x0103);
        preface->setContentStorage(ContentStorage::create());
        handler.startMetadata();
        handler.model({preface});
        handler.xmlMetadata("<xml/>", 6);
        handler.endMetadata();
    };
    const auto tellIndex = [](MXFIndexHandler& handler) {
        handler.startIndexTable();
        handler.indexTableSegment({});
        handler.indexTableSegment({});
        handler.endIndexTable();
    };
    MXFPartitionPack pack;
    pack.kagSize = 256;
    pack.headerByteCount =
        getVEXASectionByteCount(writer->getMetadataByteCount(256, tellMetadata), 256);
    pack.indexByteCount = getVEXASectionByteCount(writer->getIndexByteCount(tellIndex), 256);
    writer->getStructureHandler()->startStructure();
    writer->getStructureHandler()->startPartition(MXFPartitionKey::openIncompleteHeader, pack, 0);
    tellMetadata(*writer->getMetadataHandler());
    tellIndex(*writer->getIndexHandler());
    writer->getStructureHandler()->endStructure(false);
    EXPECT_EQ(256 + pack.headerByteCount + pack.indexByteCount, output->str().size());

    EXPECT_EQ(0U, getVEXASectionByteCount(0, 256));
    EXPECT_EQ(300U, getVEXASectionByteCount(300, 0));
    EXPECT_EQ(256U, getVEXASectionByteCount(236, 256));
    EXPECT_EQ(512U, getVEXASectionByteCount(237, 256));
}

TEST(VEXAWriter, ChoosesTheVersionOfFillItemKeys) {
    const KLVKey mpeg2 =
        smpteKey({0x04, 0x01, 0x01, 0x07, 0x0D, 0x01, 0x03, 0x01, 0x02, 0x04, 0x60, 0x01});
    const auto version = [&](int kind, std::uint16_t minorVersion, std::uint32_t bodySID,
                             const std::vector<KLVKey>& containers, std::uint8_t before) {
        std::ostringstream stream;
        klvutil::setFillKeyVersion(stream, before);
        DullMXFStructureHandler next;
        FillItemKeyModeStructureFilter filter(next, stream);
        MXFPartitionPack pack;
        pack.minorVersion = minorVersion;
        pack.bodySID = bodySID;
        pack.essenceContainers = containers;
        filter.startPartition(partitionKey(kind, 4), pack, 0);
        return int{klvutil::fillKeyVersion(stream)};
    };
    EXPECT_EQ(2, version(2, 3, 0, {}, 0));
    EXPECT_EQ(2, version(2, 2, 1, {someItemKey, mpeg2}, 0));
    EXPECT_EQ(0, version(2, 2, 0, {mpeg2}, 0));
    EXPECT_EQ(0, version(2, 2, 1, {someItemKey}, 0));
    EXPECT_EQ(0, version(3, 3, 1, {mpeg2}, 0));
    EXPECT_EQ(1, version(2, 3, 1, {mpeg2}, 1));
}

} // namespace
