// Header metadata: what it costs to parse it into a model, and to code that, against a bare copy of
// its bytes. The cost of a set should hardly grow with their number.

#include "front/VEXAMetadataFactory.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "measure.h"
#include "metadata/model/MXFMetadataModelCoder.h"
#include "metadata/model/MXFMetadataModelParser.h"
#include "metadata/model/codec.h"
#include "metadata/primed/MXFMetadataParser.h"
#include "metadata/primed/privateKeys.h"
#include "metadata/sets/standardPrimer.h"
#include "support/AllocationCount.h"
#include "util/byte_vector_device.h"
#include "util/vector_istream.h"

#include <vexa/metadata/MXFMetadataCoder.h>
#include <vexa/metadata/sets/AllSets.h>

#include <boost/iostreams/stream.hpp>

#include <algorithm>
#include <functional>
#include <random>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Root = boost::shared_ptr<MetadataRoot>;

/// Makes models that are the same at each run.
class ModelBuilder {
public:
    ModelBuilder() : preface(make<Preface>()) {
        preface->setContentStorage(make<ContentStorage>());
        addPackage();
    }

    MXFUID randomUID() {
        MXFUID uid;
        std::generate(uid.bytes.begin(), uid.bytes.end(), std::ref(engine));
        return uid;
    }

    template <class Set> boost::shared_ptr<Set> make() {
        const auto set = Set::create();
        uids.push_back(randomUID());
        set->setInstanceUID(uids.back());
        return set;
    }

    void addPackage() {
        package = make<MaterialPackage>();
        preface->getContentStorage()->addPackage(package);
    }

    void addTrack() {
        const auto clip = make<SourceClip>();
        const auto sequence = make<Sequence>();
        sequence->addComponent(clip);
        const auto track = make<TimelineTrack>();
        track->setTrackName(L"picture");
        track->setSegment(sequence);
        package->addTrack(track);
    }

    std::mt19937 engine{1}; // NOLINT(bugprone-random-generator-seed)
    std::vector<MXFUID> uids;
    boost::shared_ptr<Preface> preface;
    boost::shared_ptr<MaterialPackage> package;
};

/// Ten to a package.
Root tracks(ModelBuilder& builder, std::size_t sets) {
    for (std::size_t i = 1; builder.uids.size() < sets; ++i) {
        i % 11 != 0 ? builder.addTrack() : builder.addPackage();
    }
    return builder.preface;
}

/// Owners and what they own are coded in any order.
Root tracksInAnyOrder(ModelBuilder& builder, std::size_t sets) {
    tracks(builder, sets);
    std::shuffle(builder.uids.begin(), builder.uids.end(), builder.engine);
    builder.preface->setDarkProperty(metadata::primedSetOrderHintKey,
                                     metadata::encodeValue(builder.uids));
    return builder.preface;
}

/// All below one object, whose references must fit in 65,535 bytes.
Root packages(ModelBuilder& builder, std::size_t sets) {
    while (builder.uids.size() < sets) {
        builder.addPackage();
    }
    return builder.preface;
}

/// Of one set; each needs a tag of its own.
Root unknownProperties(ModelBuilder& builder, std::size_t properties) {
    for (std::size_t i = 0; i < properties; ++i) {
        builder.preface->setDarkProperty({builder.randomUID().bytes}, Bytes(8));
    }
    return builder.preface;
}

class ModelKeeper : public MXFMetadataModelHandler {
public:
    void startMetadata() override {}
    void endMetadata() override {}
    void model(const std::vector<Root>& delivered) override { roots = delivered; }
    std::vector<Root> roots;
};

/// The model's end is included.
void parse(const Root&, MXFMetadataFactory& factory, Bytes& bytes) {
    util::vector_istream stream(bytes);
    ModelKeeper keeper;
    MXFMetadataModelParser modelParser(keeper, factory);
    MXFMetadataParser parser(modelParser, metadata::standardPrimer());
    GenericKLVReader(parser).parse(stream);
    if (keeper.roots.size() != 1) {
        throw std::logic_error("objects are missing");
    }
}

void code(const Root& root, MXFMetadataFactory& factory, Bytes& bytes) {
    bytes.clear();
    boost::iostreams::stream<util::byte_vector_device> stream{util::byte_vector_device(bytes)};
    GenericKLVWriter writer(stream);
    MXFMetadataCoder coder(writer);
    MXFMetadataModelCoder modelCoder(coder, factory);
    modelCoder.startMetadata();
    modelCoder.model({root});
    modelCoder.endMetadata();
}

/// Argument: sets, or whatever the model is made of.
template <auto work, auto makeModel> void model(benchmark::State& state) {
    VEXAMetadataFactory factory;
    ModelBuilder builder;
    const Root model = makeModel(builder, static_cast<std::size_t>(state.range(0)));
    Bytes bytes;
    code(model, factory, bytes);
    const auto ours = [&] { work(model, factory, bytes); };
    const auto bare = [&] { benchmark::DoNotOptimize(Bytes(bytes)); };
    const auto sets = static_cast<double>(state.range(0));
    ours();
    const std::uint64_t before = allocationCount();
    ours();
    state.counters["allocations/set"] = static_cast<double>(allocationCount() - before) / sets;
    compareCPU(state, ours, bare, [] {});
    state.counters["bytes"] = static_cast<double>(bytes.size());
    state.counters["us/set"] = 1e3 * state.counters["cpu_ms"] / sets;
}

/// 142 sets make a header of 16 KiB.
void setUp(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("sets")->Unit(benchmark::kMillisecond)->UseManualTime();
}

BENCHMARK_TEMPLATE(model, parse, tracks)->Apply(setUp)->Arg(142)->Arg(10000)->Arg(40000);
BENCHMARK_TEMPLATE(model, code, tracks)->Apply(setUp)->Arg(142)->Arg(10000)->Arg(40000);
BENCHMARK_TEMPLATE(model, parse, tracksInAnyOrder)->Apply(setUp)->Arg(142)->Arg(10000)->Arg(40000);
BENCHMARK_TEMPLATE(model, code, tracksInAnyOrder)->Apply(setUp)->Arg(142)->Arg(10000)->Arg(40000);
BENCHMARK_TEMPLATE(model, parse, packages)->Apply(setUp)->Arg(1000)->Arg(4000);
BENCHMARK_TEMPLATE(model, code, packages)->Apply(setUp)->Arg(1000)->Arg(4000);
BENCHMARK_TEMPLATE(model, parse, unknownProperties)->Apply(setUp)->Arg(5000);
BENCHMARK_TEMPLATE(model, code, unknownProperties)->Apply(setUp)->Arg(5000);

} // namespace
