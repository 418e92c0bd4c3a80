// Any bytes as a header metadata region, parsed into a model: what it tells on streams that can and
// can't seek, that its objects form trees, and that a tree, coded and parsed again, is the same.

#include "front/VEXAMetadataFactory.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "metadata/MXFMetadataCoder.h"
#include "metadata/MXFMetadataModelCoder.h"
#include "metadata/MXFMetadataModelParser.h"
#include "metadata/MXFMetadataParser.h"
#include "metadata/privateKeys.h"
#include "support.h"

#include <vexa/metadata/sets/structural/Preface.h>

#include <boost/make_shared.hpp>

#include <optional>
#include <set>
#include <sstream>
#include <typeindex>

namespace {

using fuzz::require;
using fuzz::Run;
using Object = boost::shared_ptr<const MetadataRoot>;
using Roots = std::vector<boost::shared_ptr<MetadataRoot>>;

/// Keeps what it makes. Some of the properties that no class knows are strong references.
class KeepingFactory : public VEXAMetadataFactory {
public:
    MXFParsedSet parse(const MXFPrimedSet& set) override {
        MXFParsedSet parsed = VEXAMetadataFactory::parse(set);
        objects.push_back(parsed.object);
        return parsed;
    }
    bool isReferenceDarkProperty(const KLVKey&, const KLVKey& key) override {
        return (key[13] & 1) != 0;
    }
    Roots objects;
} factory;

/// The pairs of events, each a letter, that a handler's grammar allows. A is none, Z the last one.
class Grammar {
public:
    explicit Grammar(std::string pairs) : pairs_(std::move(pairs)) {}
    ~Grammar() { require(last_ == 'A' || last_ == 'Z', "a region ends with its parse"); }
    void go(char event) {
        require(pairs_.find({last_, event}) != std::string::npos, "events follow their grammar");
        last_ = event;
    }

private:
    std::string pairs_;
    char last_ = 'A';
};

class CheckingModelHandler : public MXFMetadataModelHandler {
public:
    void startMetadata() override { grammar_.go('s'); }
    void endMetadata() override { grammar_.go('Z'); }
    void model(const Roots& delivered) override { grammar_.go('m'), roots = delivered; }
    Roots roots;

private:
    Grammar grammar_{"As sm mZ sZ"};
};

class CheckingParser : public MXFMetadataModelParser {
    using Base = MXFMetadataModelParser;

public:
    using Base::Base;
    void startMetadata() override { grammar_.go('s'), Base::startMetadata(); }
    void endMetadata() override { grammar_.go('Z'), Base::endMetadata(); }
    void primer(const MXFPrimer&) override { grammar_.go('p'); }
    bool wantsPrimedSet(const KLVKey& key) override {
        const bool wanted = Base::wantsPrimedSet(key);
        grammar_.go(wanted ? 'w' : 'p');
        return wanted;
    }
    void primedSet(const MXFPrimedSet& set) override { grammar_.go('p'), Base::primedSet(set); }

private:
    Grammar grammar_{"As sp pp pw wp sZ pZ wZ"};
};

/// Why a model that was parsed can't be coded: a required reference has no target; two classes have
/// the same tag; more keys want a tag than there are; and among its properties a file may have the
/// order hints that are the library's own, with any value.
void requireFilesFault(const std::string& text) {
    static const std::set<std::string> texts = {
        "consistent primer entry", "dynamic tag available",
        "single primed set order", "no repeated properties in order hint",
        "valid external length",   "successful seekg()",
        "successful get()",        "successful read()"};
    if (texts.count(text) == 0 && text.find(" is present") == std::string::npos) {
        fuzz::finding("a model can't be coded: " + text);
    }
}

struct Model {
    Roots roots;
    /// Class and set of each object below the roots, behind its owner's.
    std::vector<std::pair<std::type_index, MXFPrimedSet>> sets;
    /// One tree that survives coding as it is: no UID is there twice, and there is nothing that
    /// stays behind, or could be resolved in another order.
    bool isSound = true;
    std::uint64_t digest = 0;
};

void addSet(Model& model, const MetadataRoot& object) {
    require(object.hasStreampos(), "an object knows where it was found");
    require(factory.canCode(typeid(object)), "what was parsed can be coded");
    auto& set = model.sets.emplace_back(typeid(object), MXFPrimedSet()).second;
    try {
        set = factory.code(object.shared_from_this());
    } catch (const util::assertion_failure& failure) {
        requireFilesFault(failure.what());
        model.isSound = false;
    }
    for (const auto& [key, value] : set.properties) {
        const bool unresolved = factory.isReferenceDarkProperty({}, key) &&
                                object.hasDarkProperty(key) && !object.isReferenceDarkProperty(key);
        model.isSound = model.isSound && !unresolved && !metadata::isPrivateKey(key);
    }
}

/// Of the objects that the factory has made since the last time.
Model modelOf(const Roots& roots) {
    const Roots objects = std::exchange(factory.objects, {});
    std::size_t ownerless = 0;
    for (const auto& object : objects) {
        ownerless += object->hasOwner() ? 0 : 1;
        auto* const preface = dynamic_cast<Preface*>(object.get());
        if (preface != nullptr && preface->hasOwner()) {
            preface->removePrimaryPackage(); // its owner may be below it, and never be freed
        }
    }
    require(roots.size() == ownerless, "the roots are those without an owner");
    Model model{roots, {}, roots.size() == 1};
    std::set<MXFUID> uids;
    fuzz::Trail trail;
    std::vector<Object> work(roots.rbegin(), roots.rend());
    while (!work.empty()) {
        const Object object = std::move(work.back());
        work.pop_back();
        addSet(model, *object);
        const auto& [type, set] = model.sets.back();
        require(model.sets.size() <= objects.size(), "an object is below one other only");
        model.isSound = uids.insert(object->getInstanceUID()).second && model.isSound;
        work.insert(work.end(), set.references.rbegin(), set.references.rend());
        trail.add("object", {type.hash_code(), set.references.size()});
        for (const auto& [key, value] : set.properties) {
            trail.add("item", {fuzz::digestOf(key), fuzz::digestOf(value.data(), value.size())});
        }
    }
    require(!model.isSound || model.sets.size() == objects.size(), "no object is lost");
    model.digest = trail.digest();
    return model;
}

Model parse(std::istream& stream, Run& run, bool withErrorHandler) {
    const auto errors =
        withErrorHandler ? boost::make_shared<fuzz::CheckingErrorHandler>(run.trail) : nullptr;
    factory.setErrorHandler(errors);
    CheckingModelHandler handler;
    CheckingParser modelParser(handler, factory);
    modelParser.setErrorHandler(errors.get());
    MXFMetadataParser parser(modelParser);
    parser.setErrorHandler(errors.get());
    GenericKLVReader reader(parser);
    reader.setErrorHandler(errors.get());
    run.failure = fuzz::failureOf(errors.get(), [&] {
        try {
            reader.parse(stream);
        } catch (const util::assertion_failure& failure) {
            require(failure.what() == std::string("before primed set"), "sets need a primer");
        }
    });
    factory.setErrorHandler(nullptr);
    Model model = modelOf(handler.roots);
    run.trail.add("model", {model.digest});
    return model;
}

/// A tree as bytes, none where it can't be coded.
std::string code(const boost::shared_ptr<MetadataRoot>& root, std::uint32_t alignment) {
    std::ostringstream stream;
    GenericKLVWriter writer(stream);
    MXFMetadataCoder coder(writer);
    coder.setPrimerAlignment(alignment);
    MXFMetadataModelCoder modelCoder(coder, factory);
    try {
        modelCoder.startMetadata();
        modelCoder.model({root});
        modelCoder.endMetadata();
        return stream.str();
    } catch (const util::assertion_failure& failure) {
        requireFilesFault(failure.what());
        return {};
    }
}

void checkRoundTrip(const Model& model, const boost::shared_ptr<MetadataRoot>& root,
                    std::uint32_t alignment) {
    std::istringstream stream(code(root, alignment));
    if (!stream.str().empty()) {
        Run run;
        const Model again = parse(stream, run, true);
        require(run.failure.empty(), "what was coded can be parsed");
        require(!model.isSound || model.digest == again.digest, "a coded tree is parsed the same");
        require(!model.isSound || code(again.roots.front(), alignment) == stream.str(),
                "it is coded the same again");
    }
}

} // namespace

void fuzz::testInput(const Input& input) {
    std::optional<Model> model;
    readEachWay(input, [&](std::istream& stream, Run& run) {
        model.emplace(parse(stream, run, input.withErrorHandler));
    });
    TestStream stream(input.bytes, {true, input.readSize, input.failAt, true});
    Run run;
    require(parse(stream, run, !input.withErrorHandler).digest == model->digest,
            "an error handler doesn't change the model");
    for (const auto& root : model->roots) {
        checkRoundTrip(*model, root, 64 * input.choice);
    }
}
