// Every class and property against tables that were transcribed on their own: declarations by the
// text of their headers, the rest by what the factories do.

#include "support/Failures.h"
#include "support/KLVBytes.h"
#include "support/Recorder.h"
#include "support/TestStream.h"
#include "util/hex.h"

#include <boost/core/demangle.hpp>
#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace {

using Bytes = KLVBytes::Bytes;
using Row = std::vector<std::string>;
enum { Class, Base, SetKey, Property = Base, Tag, Key, Type, Presence };

std::vector<Row> readTable(const std::string& name) {
    std::ifstream file(testDataPath(name));
    std::vector<Row> rows;
    for (std::string line, field; std::getline(file, line);) {
        std::istringstream fields(line);
        rows.emplace_back();
        while (std::getline(fields, field, '\t')) {
            rows.back().push_back(field);
        }
    }
    rows.erase(rows.begin());
    return rows;
}

/// As in the tables, byte 7 with the rest.
std::string hex(const KLVKey& key) {
    std::string text;
    for (const std::uint8_t byte : key.bytes) {
        text += util::hexByte(byte);
    }
    return text;
}

/// The class and its bases, and whether one class is among those of another.
std::vector<std::string> chainOf(std::string name) {
    static const std::vector<Row> sets = readTable("sets.tsv");
    std::vector<std::string> chain;
    while (!name.empty()) {
        chain.push_back(name);
        const auto row = std::find_if(sets.begin(), sets.end(),
                                      [&](const Row& set) { return set[Class] == name; });
        name = row == sets.end() ? "" : (*row)[Base];
    }
    return chain;
}

/// The properties of a class and its bases, its own first.
std::vector<Row> rowsOf(const std::string& name) {
    static const std::vector<Row> properties = readTable("properties.tsv");
    std::vector<Row> rows;
    for (const std::string& level : chainOf(name)) {
        std::copy_if(properties.begin(), properties.end(), std::back_inserter(rows),
                     [&](const Row& row) { return row[Class] == level; });
    }
    return rows;
}

/// All factories of classes, by set key.
void collect(const boost::shared_ptr<MXFMetadataFactory>& factory,
             std::map<std::string, boost::shared_ptr<MetadataRootFactory>>& factories) {
    if (const auto leaf = boost::dynamic_pointer_cast<MetadataRootFactory>(factory)) {
        EXPECT_TRUE(factories.emplace(hex(leaf->getSetKey()), leaf).second);
        return;
    }
    for (const auto& next : dynamic_cast<MXFMetadataModelFactory&>(*factory).getFactories()) {
        collect(next, factories);
    }
}

/// The text of each header with a class, by its name.
std::map<std::string, std::string> headers() {
    std::map<std::string, std::string> texts;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::string(VEXA_TEST_DATA_DIR) + "/../../include/vexa/metadata")) {
        std::ifstream file(entry.path());
        texts[entry.path().stem()] = {std::istreambuf_iterator<char>(file), {}};
    }
    return texts;
}

/// The class that a reference is to; empty for a value.
std::string targetOf(const Row& row) {
    const std::size_t tick = row[Type].find('`');
    return tick == std::string::npos ? "" : row[Type].substr(tick + 1, row[Type].size() - tick - 2);
}

bool isVector(const Row& row) {
    return row[Type].rfind("strong ref vector", 0) == 0;
}

bool isWeak(const Row& row) {
    return row[Property] == "primaryPackage";
}

/// As in `VEXA_REQUIRED(std::uint16_t, Version, version);`.
std::string declarationOf(const Row& row) {
    const std::string& name = row[Property];
    const std::regex capitals("dm|rip|url|.");
    std::smatch first;
    std::regex_search(name, first, capitals);
    std::string accessor = first.str() + name.substr(first.length());
    std::transform(accessor.begin(), accessor.begin() + first.length(), accessor.begin(), toupper);
    std::string pattern = row[Presence] == "required" ? "REQUIRED" : "OPTIONAL";
    std::string type = targetOf(row);
    if (isVector(row)) {
        pattern = "STRONG_VECTOR";
        accessor = std::regex_replace(accessor, std::regex("s$"), "");
    } else if (!type.empty()) {
        pattern += isWeak(row) ? "_WEAK" : "_STRONG";
    } else {
        type = std::regex_replace(row[Type], std::regex("\\bi(\\d+)$"), "std::int$1_t");
        type = std::regex_replace(type, std::regex("\\bu(\\d+)$"), "std::uint$1_t");
        type = std::regex_replace(type, std::regex("batch of (.*)"), "std::vector<$1>");
        type = type == "wide string" ? "std::wstring" : type;
    }
    return "VEXA_" + pattern + '(' + type + ", " + accessor + ", " + name + ");";
}

/// What a factory reports of values, without the reasons.
std::string reportsOf(MetadataRootFactory& factory, const MXFPrimedSet& set) {
    const auto errors = boost::make_shared<KeepingErrorHandler>();
    factory.setErrorHandler(errors);
    factory.parse(set);
    factory.setErrorHandler(nullptr);
    return std::regex_replace(errors->text(), std::regex(" value - .*"), "");
}

} // namespace

TEST(SetClasses, AreThoseOfTheTables) {
    FactoriesByKey concrete, abstract;
    collect(createVEXADefaultMetadataFactory(), concrete);
    collectAll<MetadataObjectFactory, GenericPackageFactory, TrackFactory, ComponentFactory,
               SegmentFactory, SourceReferenceFactory, EventFactory, GenericLocatorFactory,
               DescriptiveMetadataFrameworkFactory, DescriptiveMetadataObjectFactory,
               GenericDescriptorFactory, FileDescriptorFactory, SubDescriptorFactory>(abstract);
    const std::map<std::string, std::string> texts = headers();
    std::string absent;
    for (const Row& set : readTable("sets.tsv")) {
        SCOPED_TRACE(set[Class]);
        if (texts.count(set[Class]) == 0) {
            absent += set[Class] + ' ';
            continue;
        }
        const std::string& text = texts.at(set[Class]);
        std::string expected = "class VEXA_EXPORT " + set[Class] + " : public " + set[Base] + " {\n";
        std::string declared;
        for (const Row& row : rowsOf(set[Class])) {
            expected += row[Class] == set[Class] ? declarationOf(row) + '\n' : "";
        }
        const std::regex declaration("class [^;{]*\\{|VEXA_(REQ|OPT|STRONG)[^;]*;");
        for (std::sregex_iterator i(text.begin(), text.end(), declaration), end; i != end; ++i) {
            declared += i->str() + '\n';
        }
        EXPECT_EQ(expected, declared.substr(0, expected.size()));
        EXPECT_EQ(std::string::npos, declared.find("VEXA_", expected.size()));
        const auto factory = concrete.find(set[SetKey]);
        if (factory == concrete.end()) {
            EXPECT_EQ(1U, abstract.erase(set[SetKey]));
            continue;
        }
        expectProperties(*factory->second, rowsOf(set[Class]));
        EXPECT_EQ(set[Class], boost::core::demangle(factory->second->getType().name()));
        concrete.erase(factory);
    }
    EXPECT_TRUE(concrete.empty() && abstract.empty());
    EXPECT_EQ("AS11CoreFramework AS11UKDPPFramework DMSegmentationFramework "
              "AS11SegmentationFramework CameraUnitMetadata LensUnitMetadata "
              "UserDefinedAcquisitionMetadata TextBasedDMFramework TextBasedObject "
              "GenericStreamTextBasedSet UTF8TextBasedSet UTF16TextBasedSet ",
              absent);
}

TEST(SetClasses, ReferToTheClassesOfTheTables) {
    FactoriesByKey factories;
    collect(createVEXADefaultMetadataFactory(), factories);
    for (const auto& [setKey, factory] : factories) {
        const std::vector<Row> rows = rowsOf(classOf(*factory));
        // Each reference to a UID that begins with the number of its row.
        MXFPrimedSet set{factory->getSetKey(), {}};
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (!targetOf(rows[i]).empty()) {
                const Bytes head = isVector(rows[i]) ? Bytes{0, 0, 0, 1, 0, 0, 0, 16} : Bytes{};
                set.properties[keyOf(rows[i])] =
                    KLVBytes().raw(head).raw({static_cast<int>(i)}).raw(Bytes(15)).bytes();
            }
        }
        const MXFParsedSet parsed = factory->parse(set);
        for (const auto& [uid, reference] : parsed.references) {
            const Row& row = rows[uid[0]];
            SCOPED_TRACE(row[Class] + '.' + row[Property]);
            EXPECT_EQ(!isWeak(row), reference->isStrong());
            for (const auto& [targetKey, target] : factories) {
            	const std::string chain
            }
        }
    }
}
