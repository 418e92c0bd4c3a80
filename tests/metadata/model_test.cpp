#include "klv/Fault.h"
#include "metadata/model/MXFMetadataModelParser.h"
#include "metadata/model/MXFMetadtaPrimerOverrideModelCoder.h"
#include "metadata/model/codec.h"
#include "metadata/primed/privateKeys.h"
#include "support/MetadataRecorder.h"
#include "support/Testing.h"

namespace {

using Sets = std::vector<MXFPrimedSet>;
using metadata::encodeValue;

const KLVKey key9 = smpteKey({1, 1, 1, 1, 9});
const KLVKey generationKey = smpteKey({1, 1, 1, 2, 5, 0x20, 7, 1, 8});
const KLVKey definitionKey = smpteKey({1, 1, 1, 2, 4, 7, 1});
const KLVKey componentsKey = smpteKey({1, 1, 1, 2, 6, 1, 1, 4, 6, 9});
const KLVKey urlKey = smpteKey({1, 1, 1, 1, 1, 2, 1, 1, 1});

const KLVKey packageKey = smpteKey({1, 1, 1, 2, 6, 1, 1, 3, 1});
const KLVKey positionKey = smpteKey({1, 1, 1, 2, 7, 2, 1, 3, 1, 4});

const KLVKey primaryKey = smpteKey({1, 1, 1, 4, 6, 1, 1, 4, 1, 8});
const KLVKey storageKey = smpteKey({1, 1, 1, 2, 6, 1, 1, 4, 2, 1});
const KLVKey packagesKey = smpteKey({1, 1, 1, 2, 6, 1, 1, 4, 5, 1});

MXFUID uid(int n) {
    MXFUID uid;
    uid[15] = static_cast<std::uint8_t>(n);
    return uid;
}

KLVKey setKey(int kind, int form = 0x53) {
    return smpteKey({2, form, 1, 1, 0x0D, 1, 1, 1, 1, 1, kind});
}

using Properties = std::map<KLVKey, Bytes>;

MXFPrimedSet makeSet(int kind, int id, Properties properties) {
    properties[instanceKey] = encodeValue(uid(id));
    properties.emplace(definitionKey, Bytes(16));
    return {setKey(kind), properties, -1, {}};
}

MXFPrimedSet filler(int id, const Properties& more = {}) {
    return makeSet(9, id, more);
}

MXFPrimedSet sequence(int id, const std::vector<int>& children, Properties more = {}) {
    std::vector<MXFUID> uids;
    std::transform(children.begin(), children.end(), std::back_inserter(uids), uid);
    more[componentsKey] = encodeValue(uids);
    return makeSet(15, id, more);
}

/// Knows a dark reference, and watches the last object that it makes.
class DarkReferences : public MXFFormatMetadataModelFactory {
public:
    MXFParsedSet parse(const MXFPrimedSet& set) override {
        MXFParsedSet parsed = MXFFormatMetadataModelFactory::parse(set);
        last = parsed.object;
        return parsed;
    }
    boost::weak_ptr<MetadataRoot> last;

private:
    bool isReferenceDarkProperty(const KLVKey& set, const KLVKey& property) override {
        return set == setKey(15) && property == keyA;
    }
};

/// Parses sets, and keeps the events and reports, of each UID its last two digits.
struct Parsing {
    boost::shared_ptr<DarkReferences> factory = boost::make_shared<DarkReferences>();
    Recording recording;
    boost::shared_ptr<KeepingErrorHandler> errors =
        boost::make_shared<KeepingErrorHandler>(recording);
    ModelRecorder recorder{recording};
    MXFMetadataModelParser parser{recorder, *factory};

    Parsing() {
        factory->setErrorHandler(errors);
        parser.setErrorHandler(errors.get());
    }

    std::string parse(const Sets& sets) {
        recording = Recording();
        parser.startMetadata();
        for (const MXFPrimedSet& set : sets) {
            if (parser.wantsPrimedSet(set.key)) {
                parser.primedSet(set);
            }
        }
        parser.endMetadata();
        return std::regex_replace(recording.text(), std::regex("0{8}(-0{4}){3}-0{10}"), "");
    }
};

} // namespace

TEST(MXFMetadataModelParser, ResolvesAndReports) {
    const std::string back = "warning 4C4F0007 backward strong reference - ";
    const std::string owned = "error 4C4F0005 referenced object is already owned - ";
    const std::string circle = " - assertion failure: object does not own this\n";
    const std::string dangling = "warning 4C4F0009 model has dangling references - ";
    const std::string unreferenced = "warning 4C4F0008 unreferenced objects - ";
    const std::string invalid = "error 4C4F0006 invalid reference - ";
    const std::string dark = "warning 4C4F0001 unrecognized (dark) metadata - ";
    const std::string length = " value - assertion failure: valid external length\n";
    const struct {
        Sets sets;
        std::string expected;
    } rows[] = {
        {{}, ""},
        {{sequence(1, {2}), filler(2)}, "model 0F.01(09.02())\n"},
        {{filler(2), sequence(1, {2})},
         back + "02\nerror 4C4F000A first object is not model root\nmodel 0F.01(09.02())\n"},
        {{sequence(1, {2, 3, 4, 5, 6, 7}), filler(6), filler(3), filler(7), filler(5), filler(2)},
         dangling + "04\nmodel 0F.01(09.02() 09.03() 09.05() 09.06() 09.07())\n"},
        {{sequence(1, {2}), filler(2), sequence(2, {3}), filler(3)},
         "error 4C4F0004 duplicate MetadataRoot.instanceUID - 02\n" + unreferenced +
             "02\nmodel 0F.01(09.02()) 0F.02(09.03())\n"},
        {{sequence(1, {2, 3}), filler(2), sequence(3, {2})},
         owned + "02\n" + dangling + "02\nmodel 0F.01(09.02() 0F.03())\n"},
        {{sequence(1, {2, 3}), sequence(3, {2}), filler(2)},
         owned + "02\n" + dangling + "02\nmodel 0F.01(09.02() 0F.03())\n"},
        {{sequence(1, {2, 2}), filler(2)},
         owned + "02\n" + dangling + "02\nmodel 0F.01(09.02())\n"},
        {{sequence(1, {2}), makeSet(0x32, 2, {{urlKey, {}}})},
         invalid + "02 - assertion failure: object is value type\n" + dangling + "02\n" +
             unreferenced + "02\nmodel 0F.01() 32.02()\n"},
        {{sequence(1, {1})},
         back + "01\n" + invalid + "01" + circle + dangling + "01\nmodel 0F.01()\n"},
        {{sequence(1, {2}), sequence(2, {1})},
         back + "01\n" + invalid + "01" + circle + dangling + "01\nmodel 0F.01(0F.02())\n"},
        {{sequence(1, {5, 4}), filler(2), filler(3)},
         dangling + "04\n" + unreferenced + "02\nmodel 0F.01() 09.02() 09.03()\n"},
        {{makeSet(0x7E, 1, {}), {setKey(0x2F, 0x13), {}, -1, {}}, filler(2)},
         dark + klvutil::describe(setKey(0x7E)) + '\n' + dark +
             klvutil::describe(setKey(0x2F, 0x13)) + "\nmodel 09.02()\n"},
        // A reference that only a subclass of the factory knows, where it knows it.
        {{sequence(1, {3}, {{keyA, encodeValue(uid(2))}, {keyB, encodeValue(uid(4))}}), filler(2),
          filler(3, {{keyA, encodeValue(uid(4))}})},
         "model 0F.01(09.02() 09.03())\n"},
        {{sequence(1, {}, {{keyA, Bytes(15)}})},
         "error 4C4F0003 invalid reference dark property "
         "(06.0E.2B.34.01.01.01.01.0A.00.00.00.00.00.00.00)" +
             length + "model 0F.01()\n"},
        // Missing and invalid properties.
        {{{setKey(0x11),
           {{generationKey, Bytes(15)}, {packageKey, Bytes(33)}, {positionKey, Bytes(7)}},
           -1,
           {}}},
         "error 4C4F0003 invalid SourceClip.startPosition" + length +
             "error 4C4F0003 invalid SourceReference.sourcePackageID value - assertion failure: "
             "valid size\nerror 4C4F0002 missing SourceReference.sourceTrackID\n"
             "error 4C4F0002 missing Component.dataDefinition\n"
             "error 4C4F0003 invalid MetadataObject.generationUID" +
             length + "error 4C4F0002 missing MetadataRoot.instanceUID\nmodel 11.00()\n"},
    };
    Parsing parsing; // one parser for all: each start begins anew
    for (const auto& row : rows) {
        EXPECT_EQ("startMetadata\n" + row.expected + "endMetadata\n", parsing.parse(row.sets))
            << "row " << &row - rows;
    }

    // A model that an error handler refuses is let go.
    parsing.recording = Recording();
    parsing.recording.interfere(1, [] { throw std::runtime_error("refused"); });
    parsing.parser.startMetadata();
    parsing.parser.primedSet(sequence(1, {2}));
    EXPECT_EQ("refused", failureOf([&] { parsing.parser.endMetadata(); }));
    EXPECT_EQ("startMetadata\nendMetadata\n", parsing.recording.text());
    EXPECT_TRUE(parsing.factory->last.expired());

    // A weak reference may go back, and to an object with an owner.
    parsing.factory->setErrorHandler(nullptr);
    const auto packages = encodeValue(std::vector<MXFUID>{uid(2)});
    EXPECT_EQ("startMetadata\n" + back + "03\nerror 4C4F000A first object is not model root\n" +
                  "model 2F.01(18.03(36.02()))\nendMetadata\n",
              parsing.parse({makeSet(0x18, 3, {{packagesKey, packages}}), makeSet(0x36, 2, {}),
                             makeSet(0x2F, 1,
                                     {{primaryKey, encodeValue(uid(2))},
                                      {storageKey, encodeValue(uid(3))}})}));
    const auto& preface = dynamic_cast<const Preface&>(*parsing.recorder.roots[0]);
    EXPECT_EQ(uid(2), preface.getPrimaryPackage()->getInstanceUID());
}

TEST(MXFMetadataModelCoder, GivesDarkPropertiesTagsAndSetsAnOrder) {
    const Bytes order = encodeValue(std::vector<MXFUID>{uid(5), uid(9), uid(2), uid(5)});
    const Sets sets = {
        sequence(1, {2, 5}, {{keyA, encodeValue(uid(6))}, {keyB, {}}}),
        sequence(2, {3, 4},
                 {{metadata::primedSetOrderHintKey, order}, {metadata::propertyOrderHintKey, {}}}),
        filler(3),
        filler(4, {{key9, {1, 2}}}),
        filler(5),
        filler(6)};
    Parsing parsing;
    parsing.parse(sets);
    const auto root = parsing.recorder.roots[0];
    const auto second = boost::dynamic_pointer_cast<Sequence>(root)->getComponentAt(0);
    EXPECT_TRUE(second->getDarkProperties().empty()); // private keys aren't for files
    second->setDarkProperty(metadata::primedSetOrderHintKey, order);
    second->setDarkProperty(metadata::propertyOrderHintKey, {});
    Recording recording;
    MetadataRecorder keeper(recording);
    MXFMetadataModelCoder coder(keeper, *parsing.factory);
    coder.model({root});
    EXPECT_EQ("primer 0201=040701 1001=060101040609 3C0A=01011502 8000=09 8001=0A 8002=0B",
              recording.lines()[0]);
    std::string ids;
    for (const MXFPrimedSet& set : keeper.sets) {
        const std::uint8_t id = set.properties.at(instanceKey)[15];
        ids += static_cast<char>('0' + id);
        EXPECT_EQ(sets[id - 1U].properties, set.properties);
        EXPECT_EQ(sets[id - 1U].key.bytes, set.key.bytes);
    }
    EXPECT_EQ("163452", ids); // without the hint 162345

    root->setDarkProperty(metadata::primedSetOrderHintKey, order);
    class Unknown : public Filler {};
    const auto owner = Sequence::create();
    owner->addComponent(boost::make_shared<Unknown>());
    const auto torn = Sequence::create();
    torn->addComponent(Filler::create());
    torn->releaseOwnership(torn->getComponentAt(0));
    const auto video = MPEGVideoDescriptor::create();
    const auto avc = AVCVideoSubDescriptor::create();
    video->addGenericSubDescriptor(avc);
    video->setConstantBFrames(true);
    avc->setConstantBPicture(true);
    parsing.factory->getFactories().push_back(createVEXADefaultMetadataFactory());
    expectFailures({{"single primed set order", [&] { coder.model({root}); }},
                    {"can handle object", [&] { coder.model({owner}); }},
                    {"object owns what it refers to", [&] { coder.model({torn}); }},
                    {"valid model", [&] { coder.model({}); }},
                    {"valid model", [&] { coder.model({nullptr}); }},
                    {"valid model",
                     [&] {
                         coder.model({video, Filler::create()});
                     }},
                    {"valid model", [&] { coder.model({avc}); }},
                    {"consistent primer entry", [&] { coder.model({video}); }}});
}

TEST(MXFMetadataModelCoder, AllocatesTags) {
    using Tags = std::map<KLVKey, std::uint16_t>;
    Recording recording;
    MetadataRecorder keeper(recording);
    DarkReferences factory;
    const struct {
        MXFPrimer fixed;
        Tags tags;
        std::string expected;
    } rows[] = {
        {{{0x3B05, keyA}},
         {{versionKey, 0x3B05}, {keyA, 0}, {keyB, 0}},
         "primer 3B05=0A 8000=0301020105 8001=0B\n"},
        {{{0x8000, keyA}}, {{keyB, 0}}, "primer 8000=0B\n"},
        {{{0x8001, keyB}}, {{keyB, 0}, {keyA, 0}, {key9, 0}}, "primer 8000=09 8001=0B 8002=0A\n"},
        {{{0x3B05, keyB}, {0x9000, versionKey}},
         {{versionKey, 0x3B05}, {keyB, 0}},
         "primer 3B05=0B 9000=0301020105\n"},
        {{{0x9000, versionKey}, {0x3B05, keyB}},
         {{versionKey, 0x3B05}, {keyB, 0}},
         "primer 3B05=0B 9000=0301020105\n"},
        {{{0x8000, keyA}, {0x8000, keyB}}, {{keyA, 0}, {keyB, 0}}, "primer 8000=0A 8001=0B\n"},
    };
    for (const auto& row : rows) {
        recording = Recording();
        MXFMetadtaPrimerOverrideModelCoder coder(keeper, factory, row.fixed);
        keeper.primer(coder.allocateDynamicTags(row.tags));
        EXPECT_EQ(row.expected, recording.text());
    }
    MXFMetadataModelCoder coder(keeper, factory);
    Tags tags{{versionKey, 0x8001}};
    for (int i = 0; i < 0x7FFF; ++i) {
        tags.emplace(smpteKey({1, 1, 1, 1, 0x10, i / 256, i % 256}), 0);
    }
    const MXFPrimer full = coder.allocateDynamicTags(tags);
    EXPECT_TRUE(full.size() == 0x8000 && full[0].tag == 0x8000 && full.back().tag == 0xFFFF);
    tags.emplace(keyA, 0);
    expectFailures({{"dynamic tag available", [&] { coder.allocateDynamicTags(tags); }},
                    {"consistent primer entry", [&] {
                         coder.allocateDynamicTags({{keyA, 5}, {keyB, 5}});
                     }}});
    tags[versionKey] = 0x3B05;
    EXPECT_EQ(0x8001U, coder.allocateDynamicTags(tags).size());
}

TEST(MetadataRootFactory, ChecksWhatItCodes) {
    const auto factory = createVEXADefaultMetadataFactory();
    PrefaceFactory prefaceFactory;
    MXFFormatMetadataModelFactory fresh;
    MXFDanglingReferences references;
    const auto preface = Preface::create();
    const auto storage = ContentStorage::create();
    const auto package = SourcePackage::create();
    const auto sequence = Sequence::create();
    const auto marker = CommentMarker::create();
    const auto code = [&](const boost::shared_ptr<MetadataRoot>& object) {
        const MetadataRoot& coded = *object;
        EXPECT_TRUE(factory->canCode(typeid(coded)));
        factory->code(object);
    };
    const auto parsed = SequenceFactory().parse(::sequence(1, {2}));
    parsed.references.begin()->second->resolve(Filler::create());
    sequence->addComponent(nullptr);
    marker->setAnnotation(nullptr);
    expectFailures({
        {"Preface.contentStorage is present", [&] { code(preface); }},
        {"Preface.identification is present",
         [&] { preface->addIdentification(nullptr), code(preface); }},
        {"Preface.primaryPackage is present",
         [&] { preface->setPrimaryPackage(nullptr), code(preface); }},
        {"ContentStorage.essenceContainerDataItem is present",
         [&] { storage->addEssenceContainerData(nullptr), code(storage); }},
        {"ContentStorage.package is present", [&] { storage->addPackage(nullptr), code(storage); }},
        {"SourcePackage.descriptor is present", [&] { code(package); }},
        {"GenericPackage.track is present", [&] { package->addTrack(nullptr), code(package); }},
        {"Sequence.component is present", [&] { code(sequence); }},
        {"Track.segment is present", [&] { code(StaticTrack::create()); }},
        {"CommentMarker.annotation is present", [&] { code(marker); }},
        {"MetadataRoot.referenceDarkProperty is present",
         [&] { sequence->setReferenceDarkProperty(keyA, nullptr), code(sequence); }},
        {"is still dangling",
         [&] { parsed.references.begin()->second->resolve(Filler::create()); }},
        {"expected set key", [&] { prefaceFactory.parse(filler(1)); }},
        {"expected type", [&] { prefaceFactory.code(marker); }},
        {"object is a Preface", [&] { prefaceFactory.parseProperties({}, marker, references); }},
        {"can handle set key", [&] { fresh.parse(filler(1)); }},
        {"can handle type", [&] { fresh.code(marker); }},
        {"factory is present",
         [&] { fresh.getFactories().push_back(nullptr), fresh.canParse(setKey(0x51)); }},
    });
    EXPECT_TRUE(fresh.canParse(setKey(9)) && fresh.canCode(typeid(Sequence)));
    EXPECT_TRUE(fresh.getSetKey(typeid(Filler)) == setKey(9));
    EXPECT_TRUE(fresh.getType(setKey(15)) == typeid(Sequence));

    package->removeTrackAt(0);
    package->addTrack(StaticTrack::create());
    package->setDescriptor(DataDescriptor::create());
    storage->insertPackageAt(0, package);
    storage->removePackageAt(1);
    storage->removeEssenceContainerDataAt(0);
    storage->addEssenceContainerData(EssenceContainerData::create());
    for (const bool last : {false, true}) {
        const auto packages = ContentStorageFactory(last).code(storage).references;
        const auto tracks = SourcePackageFactory(last).code(package).references;
        EXPECT_TRUE((last ? packages.back() : packages.front()) == package);
        EXPECT_TRUE((last ? tracks.front() : tracks.back()) == package->getDescriptor());
    }
}
