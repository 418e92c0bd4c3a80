#include "metadata/model/MXFMetadataModelCoder.h"
#include "metadata/model/MXFMetadataModelParser.h"
#include "metadata/primed/MXFMetadataParser.h"
#include "metadata/sets/standardPrimer.h"
#include "support/MetadataRecorder.h"
#include "support/Testing.h"

namespace {

const KLVKey dmSchemesKey = smpteKey({1, 1, 1, 5, 1, 2, 2, 0x10, 2, 2});

/// Takes header metadata through models to bytes again.
struct Chain {
    boost::shared_ptr<MXFMetadataModelFactory> factory = createVEXADefaultMetadataFactory();
    boost::shared_ptr<KeepingErrorHandler> errors = boost::make_shared<KeepingErrorHandler>();
    std::ostringstream bytes;
    GenericKLVWriter writer{bytes};
    MXFMetadataCoder coder{writer};
    Recording events;
    MetadataRecorder coded{events, &coder};
    MXFMetadataModelCoder modelCoder{coded, *factory};
    MXFMetadataModelParser modelParser{modelCoder, *factory};
    MetadataRecorder parsed{events, &modelParser};
    MXFMetadataParser parser{parsed, metadata::standardPrimer()};

    Chain() {
        factory->setErrorHandler(errors);
        modelParser.setErrorHandler(errors.get());
        parser.setErrorHandler(errors.get());
    }
};

/// Sets in any order. An empty batch is as good with elements of no size.
std::multiset<std::pair<KLVKey, std::map<KLVKey, Bytes>>>
contentOf(const std::vector<MXFPrimedSet>& sets) {
    std::multiset<std::pair<KLVKey, std::map<KLVKey, Bytes>>> content;
    for (MXFPrimedSet set : sets) {
        for (auto& [key, value] : set.properties) {
            if (value == Bytes(8) && key == dmSchemesKey) {
                value[7] = KLVKey::size;
            }
        }
        content.emplace(set.key, set.properties);
    }
    return content;
}

} // namespace

TEST(HeaderMetadata, ComesBackFromTheModelsOfRealFiles) {
    const std::pair<const char*, std::size_t> files[] = {
        {"avc_longgop_50p.mxf", 28},           {"d10_30_625.mxf", 27},
        {"longgop_25p_2ch.mxf", 34},           {"longgop_25p_run_in.mxf", 34},
        {"longgop_25p_second_writer.mxf", 54}, {"longgop_25p_truncated.mxf", 34},
        {"longgop_2997_dropframe.mxf", 27},    {"uncompressed_second_writer.mxf", 38},
        {"vc3_720p25_clip_wrapped.mxf", 19},
    };
    EXPECT_EQ(testDataNames().size(), std::size(files));
    for (const auto& [name, sets] : files) {
        SCOPED_TRACE(name);
        Chain chain;
        MXFReader reader;
        reader.setMetadataHandler(&chain.parser);
        TestStream in(testData(name));
        failureOf([&] { reader.parse(in); }); // one file ends in its essence
        EXPECT_EQ(sets, chain.parsed.sets.size());
        EXPECT_TRUE(contentOf(chain.parsed.sets) == contentOf(chain.coded.sets));

        const std::string all = chain.bytes.str();
        const std::string first = all.substr(0, all.find(all.substr(0, 16), 1)); // region
        Chain again;
        TestStream regionIn({first.begin(), first.end()});
        GenericKLVReader(again.parser).parse(regionIn);
        EXPECT_EQ(first, again.bytes.str());
        EXPECT_EQ("", again.errors->text());
    }
}
