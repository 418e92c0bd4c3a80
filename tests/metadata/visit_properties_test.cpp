#include "metadata/model/MXFMetadataModelParser.h"
#include "metadata/primed/MXFMetadataParser.h"
#include "metadata/sets/standardPrimer.h"
#include "support/MetadataRecorder.h"
#include "support/Testing.h"

namespace {

using Object = boost::shared_ptr<const MetadataRoot>;

/// Writes what it is told as lines, and keeps the objects.
class Visitor : public metadata::PropertyVisitor {
public:
    void value(const char* name, metadata::ValueKind kind, const std::string& text) override {
        add(name, "NBSLO"[static_cast<int>(kind)] + (' ' + text));
    }
    void values(const char* name, metadata::ValueKind kind,
                const std::vector<std::string>& texts) override {
        std::string all;
        for (const std::string& text : texts) {
            all += '[' + text + ']';
        }
        add(name, "NBSLO"[static_cast<int>(kind)] + (' ' + all));
    }
    void object(const char* name, const Object& target) override { objects(name, {target}); }
    void objects(const char* name, const std::vector<Object>& targets) override {
        add(name, "owns " + std::to_string(targets.size()));
        owned.insert(owned.end(), targets.begin(), targets.end());
    }
    void reference(const char* name, const Object& target) override {
        add(name, std::string("refers to ") + target->getClassName());
    }
    void darkValue(const KLVKey&, const std::vector<std::uint8_t>& bytes) override {
        add("dark", std::to_string(bytes.size()));
    }
    void darkObject(const KLVKey&, const Object& target) override { objects("dark", {target}); }

    std::string told;
    std::size_t count = 0;
    std::list<Object> owned;

private:
    void add(const std::string& name, const std::string& content) {
        told += name + ' ' + content + '\n';
        ++count;
    }
};

std::string textOf(const MetadataRoot& object) {
    Visitor visitor;
    visitProperties(object, visitor);
    return visitor.told;
}

} // namespace

TEST(VisitProperties, TellsWhatACoderCodes) {
    std::size_t visited = 0;
    for (const std::string& name : testDataNames()) {
        const auto factory = createVEXADefaultMetadataFactory();
        Recording recording;
        ModelRecorder model(recording);
        MXFMetadataModelParser modelParser(model, *factory);
        MXFMetadataParser parser(modelParser, metadata::standardPrimer());
        MXFReader reader;
        reader.setMetadataHandler(&parser);
        TestStream in(testData(name));
        failureOf([&] { reader.parse(in); }); // one file ends in its essence
        std::vector<Object> work(model.roots.begin(), model.roots.end());
        for (; !work.empty(); ++visited) {
            const Object object = work.back();
            work.pop_back();
            Visitor visitor;
            visitProperties(*object, visitor);
            const MetadataRoot& set = *object;
            ASSERT_TRUE(factory->canCode(typeid(set)));
            const MXFPrimedSet coded = factory->code(object);
            EXPECT_EQ(coded.properties.size(), visitor.count) << name << '\n' << visitor.told;
            EXPECT_EQ(coded.references, visitor.owned) << name << '\n' << visitor.told;
            work.insert(work.end(), visitor.owned.begin(), visitor.owned.end());
        }
    }
    EXPECT_EQ(visited, 249U); // each file's last model
}

TEST(VisitProperties, TellsEveryTypeAsText) {
    const auto preface = Preface::create();
    const auto package = SourcePackage::create();
    UMID umid;
    umid.bytes[31] = 0xAB;
    package->setPackageUID(umid);
    package->setName(L"\u00E4\u20AC" + std::wstring(1, 0x1F600) + std::wstring(1, 0xD800));
    preface->setInstanceUID({{1}});
    preface->setLastModifiedDate({2005, 9, 15, 12, 34, 56, 249});
    preface->setPrimaryPackage(package);
    preface->setOperationalPattern(smpteKey({4, 1, 1, 1, 0x0D, 1, 2, 1, 1, 1, 9}));
    preface->setEssenceContainers({smpteKey({4, 1, 1, 9, 9})});
    preface->setRIPPresent(true);
    preface->setDarkProperty(smpteKey({9}), {1, 2, 3});
    EXPECT_STREQ(preface->getClassName(), "Preface");
    EXPECT_EQ(textOf(*preface), "instanceUID O 01000000-0000-0000-0000-000000000000\n"
                                "lastModifiedDate O 2005-09-15T12:34:56.996\n"
                                "version N 258\n"
                                "primaryPackage refers to SourcePackage\n"
                                "identifications owns 0\n"
                                "operationalPattern L "
                                "06.0E.2B.34.04.01.01.01.0D.01.02.01.01.01.09.00 OP1a\n"
                                "essenceContainers L "
                                "[06.0E.2B.34.04.01.01.09.09.00.00.00.00.00.00.00]\n"
                                "dmSchemes L \n"
                                "ripPresent B true\n"
                                "dark 3\n");
    const std::string digits(62, '0');
    EXPECT_EQ(textOf(*package).substr(51), "packageUID O " + digits + "AB\n" +
                                               "name S \xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"
                                               "\xEF\xBF\xBD\n"
                                               "packageCreationDate O unknown\n"
                                               "packageModifiedDate O unknown\n"
                                               "tracks owns 0\n");
    const auto picture = RGBAPictureDescriptor::create();
    picture->setSampleRate({30000, -1001});
    picture->setPixelLayout({{{{'R', 8}, {216, 10}}}});
    picture->setPalette({0, 0xFE});
    const std::string text = textOf(*picture);
    EXPECT_NE(text.find("\nsampleRate O 30000/-1001\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\npixelLayout O [R:8][216:10]\npalette O 00FE\n"), std::string::npos);
    EXPECT_EQ(metadata::toString(MXFProductVersion{1, 2, 3, 4, 65535}), "1.2.3.4.65535");
}
