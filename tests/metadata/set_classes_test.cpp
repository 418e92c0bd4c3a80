// Every class and property against tables that were transcribed on their own: declarations by the
// text of their headers, the rest by what the factories know and report.

#include "klv/Fault.h"
#include "metadata/sets/standardPrimer.h"
#include "support/Testing.h"

#include <boost/core/demangle.hpp>

#include <iomanip>

namespace {

using FactoriesByKey = std::map<std::string, boost::shared_ptr<MetadataRootFactory>>;
using Row = std::vector<std::string>;
enum { Class, Base, SetKey, Property = Base, Tag, Key, Type, Presence };

/// A table's fields, its head excepted.
std::vector<Row> readTable(const std::string& name) {
    std::ifstream file(testDataPath(name));
    std::vector<Row> rows;
    for (std::string line, field; std::getline(file, line);) {
        std::istringstream fields(line);
        for (rows.emplace_back(); std::getline(fields, field, '\t');) {
            rows.back().push_back(field);
        }
    }
    return {rows.begin() + 1, rows.end()};
}

/// As in the tables, byte 7 with the rest.
std::string hex(const KLVKey& key) {
    return std::regex_replace(klvutil::describe(key), std::regex("\\."), "");
}

/// Of the classes that a factory is for.
FactoriesByKey factoriesOf(const boost::shared_ptr<MXFMetadataFactory>& factory) {
    if (const auto leaf = boost::dynamic_pointer_cast<MetadataRootFactory>(factory)) {
        return {{hex(leaf->getSetKey()), leaf}};
    }
    FactoriesByKey factories;
    for (const auto& next : dynamic_cast<MXFMetadataModelFactory&>(*factory).getFactories()) {
        factories.merge(factoriesOf(next));
    }
    return factories;
}

template <class... Factories> FactoriesByKey factoriesOf() {
    FactoriesByKey factories;
    (factories.merge(factoriesOf(boost::make_shared<Factories>())), ...);
    return factories;
}

/// By class the lines of its header that declare it and its properties.
std::map<std::string, std::string> readDeclarations() {
    const std::regex declaration("class [^;{]*\\{|VEXA_(REQ|OPT|STRONG)[^;]*;");
    std::map<std::string, std::string> texts;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::string(VEXA_TEST_DATA_DIR) + "/../../include/vexa/metadata")) {
        std::ostringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        const std::string all = text.str();
        for (std::sregex_iterator i(all.begin(), all.end(), declaration), end; i != end; ++i) {
            if (i->str().find("Factory") == std::string::npos) {
                texts[entry.path().stem()] +=
                    std::regex_replace(i->str(), std::regex("\\s+"), " ") + '\n';
            }
        }
    }
    return texts;
}

/// Such as `VEXA_REQUIRED(std::uint16_t, Version, version);`.
std::string declarationOf(const Row& row) {
    const auto with = [](const std::string& text, const char* pattern, const char* replacement) {
        return std::regex_replace(text, std::regex(pattern), replacement);
    };
    const std::string& name = row[Property];
    std::string pattern = row[Presence] == "required" ? "REQUIRED" : "OPTIONAL";
    std::string type = with(row[Type], "\\bi(\\d+)$", "std::int$1_t");
    type = with(with(type, "\\bu(\\d+)$", "std::uint$1_t"), "wide string", "std::wstring");
    type = with(with(type, "batch of (.*)", "std::vector<$1>"), "ref to `(.*)`", "$1");
    pattern += row[Type][0] == 'r' ? "_STRONG" : "";
    pattern = name == "primaryPackage" ? "OPTIONAL_WEAK" : pattern;
    std::string accessor = name;
    const auto capitals = with(name, "^(dm|rip|url|.).*", "$1").size();
    for (std::size_t i = 0; i < capitals; ++i) {
        accessor[i] = static_cast<char>(std::toupper(name[i]));
    }
    if (row[Type].rfind("strong", 0) == 0) {
        pattern = "STRONG_VECTOR";
        type = with(type, ".*`(.*)`", "$1");
        accessor = with(accessor, "s$", "") + ", " + accessor;
    }
    return "VEXA_" + pattern + '(' + type + ", " + accessor + ", " + name + ");\n";
}

/// Names, order and presence, by what is reported where one property is invalid and no other there.
void expectProperties(MetadataRootFactory& factory, const std::vector<Row>& rows) {
    EXPECT_EQ(rows.size(), factory.getSetPrimer().size());
    for (const auto& [key, tag] : factory.getSetPrimer()) {
        std::string expected;
        for (const Row& row : rows) {
            const std::string name = row[Class] + '.' + row[Property] + '\n';
            if (row[Key] == hex(key)) {
                expected += "error 4C4F0003 invalid " + name;
                EXPECT_EQ(row[Tag] == "dynamic" ? 0 : std::stoi(row[Tag], nullptr, 16), tag);
            } else if (row[Presence] == "required") {
                expected += "error 4C4F0002 missing " + name;
            }
        }
        const auto errors = boost::make_shared<KeepingErrorHandler>();
        factory.setErrorHandler(errors);
        factory.parse({factory.getSetKey(), {{key, Bytes(33, 0xFF)}}, -1, {}});
        EXPECT_EQ(expected, std::regex_replace(errors->text(), std::regex(" value - .*"), ""));
    }
}

} // namespace

TEST(SetClasses, AreThoseOfTheTables) {
    FactoriesByKey concrete = factoriesOf(createVEXADefaultMetadataFactory());
    FactoriesByKey abstract =
        factoriesOf<MetadataObjectFactory, GenericPackageFactory, TrackFactory, ComponentFactory,
                    SegmentFactory, SourceReferenceFactory, EventFactory, GenericLocatorFactory,
                    DescriptiveMetadataFrameworkFactory, DescriptiveMetadataObjectFactory,
                    GenericDescriptorFactory, FileDescriptorFactory, SubDescriptorFactory>();
    const auto declarations = readDeclarations();
    const std::vector<Row> properties = readTable("properties.tsv");
    std::map<std::string, std::string> bases;
    std::string absent;
    for (const Row& set : readTable("sets.tsv")) {
        SCOPED_TRACE(set[Class]);
        bases[set[Class]] = set[Base];
        if (declarations.count(set[Class]) == 0) {
            absent += set[Class] + ' ';
            continue;
        }
        std::string declared =
            "class VEXA_EXPORT " + set[Class] + " : public " + set[Base] + " {\n";
        std::vector<Row> rows; // its own first
        for (std::string level = set[Class]; !level.empty(); level = bases[level]) {
            for (const Row& row : properties) {
                if (row[Class] == level) {
                    rows.push_back(row);
                    declared += level == set[Class] ? declarationOf(row) : "";
                }
            }
        }
        EXPECT_EQ(declared, declarations.at(set[Class]));
        const auto factory = concrete.extract(set[SetKey]);
        EXPECT_TRUE(factory || abstract.erase(set[SetKey]) == 1);
        if (factory) {
            EXPECT_EQ("vexa_toolkit::" + set[Class],
                      boost::core::demangle(factory.mapped()->getType().name()));
            expectProperties(*factory.mapped(), rows);
        }
    }
    EXPECT_TRUE(concrete.empty() && abstract.empty());
    EXPECT_EQ("AS11CoreFramework AS11UKDPPFramework DMSegmentationFramework "
              "AS11SegmentationFramework CameraUnitMetadata LensUnitMetadata "
              "UserDefinedAcquisitionMetadata TextBasedDMFramework TextBasedObject "
              "GenericStreamTextBasedSet UTF8TextBasedSet UTF16TextBasedSet ",
              absent);
}

TEST(StandardPrimer, ListsTheTagsOfTheTablesInTheStandardsOrder) {
    std::map<std::string, std::string> keys;
    for (const Row& row : readTable("properties.tsv")) {
        keys[row[Tag]] = row[Key];
    }
    std::ostringstream tags;
    for (const MXFPrimerEntry& entry : metadata::standardPrimer().rows()) {
        std::ostringstream tag;
        tag << std::hex << std::setfill('0') << std::setw(4) << entry.tag;
        tags << tag.str() << ' ';
        EXPECT_TRUE(keys.count(tag.str()) == 0 || keys[tag.str()] == hex(entry.key)) << tag.str();
    }
    EXPECT_EQ(
        tags.str(),
        "3c0a 0102 3b02 3b05 3b07 3b08 3b06 3b03 3b09 3b0a 3b0b 3c09 3c01 3c02 3c03 3c04 3c05 "
        "3c06 3c07 3c08 0201 0202 1001 1101 1102 1201 1501 1502 1503 0601 0602 6102 6101 6103 "
        "1901 1902 2701 3f06 3f07 2f01 3006 3001 3002 3004 3005 3215 320c 3203 3202 3216 3205 "
        "3204 3206 3207 3208 3209 320a 320b 3217 320e 3218 320d 320f 3210 3211 3213 3214 3212 "
        "3201 3219 321a 3301 3302 3308 3303 330b 3307 3309 3304 3305 3306 3406 3407 3408 3409 "
        "3405 3401 3403 3404 3d03 3d02 3d04 3d05 3d07 3d01 3d0c 3d06 3e01 3f01 4801 4804 4802 "
        "4803 4b01 4b02 4901 4902 4401 4402 4405 4404 4403 4701 4001 4101 3f05 3f08 3f09 3f0a "
        "3f0b 3f0c 3f0d 3f0e ");
}
