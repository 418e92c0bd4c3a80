// Any bytes as a header metadata region, parsed into a model: what it tells on streams that can and
// can't seek, that its objects form trees, and that a tree, coded and parsed again, is the same.

#include "front/VEXAMetadataFactory.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "metadata/model/MXFMetadataModelCoder.h"
#include "metadata/model/MXFMetadataModelParser.h"
#include "metadata/primed/MXFMetadataParser.h"
#include "metadata/primed/privateKeys.h"
#include "metadata/sets/standardPrimer.h"
#include "support.h"

#include <vexa/metadata/MXFMetadataCoder.h>
#include <vexa/metadata/MetadataRoot.h>

#include <regex>
#include <set>
#include <sstream>

namespace {

using fuzz::require;
using Root = boost::shared_ptr<MetadataRoot>;

/// Some of the properties that a Preface doesn't know are strong references.
struct Factory : VEXAMetadataFactory {
    bool isReferenceDarkProperty(const KLVKey& setKey, const KLVKey& key) override {
        return setKey[14] == 0x2F && (key[13] & 1) != 0;
    }
} factory;

/// What becomes of a region, whose events, each a letter, may follow one another as `pairs` says.
struct Model : MXFMetadataModelHandler {
    char go(char event) {
        const std::string pairs = "As sS Sp SZ pp pw wp pZ wZ Zm ZE mE";
        require(pairs.find({last, event}) != std::string::npos, "events follow their grammar");
        sets += last == 'w' && event == 'p' ? 1 : 0;
        return last = event;
    }
    void startMetadata() override { go('S'); }
    void endMetadata() override { go('E'); }
    void model(const std::vector<Root>& objects) override { go('m'), roots = objects; }
    char last = 'A';
    std::size_t sets = 0;
    std::vector<Root> roots;
    /// One tree, without UIDs that are there twice, and nothing that isn't coded or resolved again.
    bool isSound = true;
    std::uint64_t digest = 0;
};

struct CheckingParser : MXFMetadataModelParser {
    using Base = MXFMetadataModelParser;
    explicit CheckingParser(Model& model) : Base(model, factory), next(model) {}
    void startMetadata() override { next.go('s'), Base::startMetadata(); }
    void endMetadata() override { next.go('Z'), Base::endMetadata(); }
    void primer(const MXFPrimer&) override { next.go('p'); }
    bool wantsPrimedSet(const KLVKey& key) override {
        return next.go(Base::wantsPrimedSet(key) ? 'w' : 'p') == 'w';
    }
    void primedSet(const MXFPrimedSet& set) override { next.go('p'), Base::primedSet(set); }
    Model& next;
};

/// Why a model that was parsed can't be coded: a required reference has no target; two classes have
/// the same tag; more keys want a tag than there are.
const std::regex filesFaults(".* is present|.*: (consistent primer entry|dynamic tag available)");
const std::regex noPrimer(".*: before primed set");

/// Returns whether an assertion ends the call: one of those expected.
bool failsBy(const std::regex& expected, const std::function<void()>& call) {
    try {
        call();
        return false;
    } catch (const util::assertion_failure& failure) {
        require(std::regex_match(failure.what(), expected), failure.what());
        return true;
    }
}

/// Walks the objects as they are coded.
void judge(Model& model) {
    model.isSound = model.roots.size() == 1;
    fuzz::Trail trail;
    std::set<MXFUID> uids;
    std::vector<boost::shared_ptr<const MetadataRoot>> objects(model.roots.begin(),
                                                               model.roots.end());
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const MetadataRoot& object = *objects[i];
        require(object.hasOwner() == (i >= model.roots.size()), "all but the roots have owners");
        require(factory.canCode(typeid(object)), "what was parsed can be coded");
        MXFPrimedSet set;
        const bool failed = failsBy(filesFaults, [&] { set = factory.code(objects[i]); });
        trail.add("set", {typeid(object).hash_code(), set.references.size()});
        for (const auto& [key, value] : set.properties) {
            trail.add("item", {fuzz::digestOf(key), fuzz::digestOf(value.data(), value.size())});
            require(!metadata::isPrivateKey(key), "private keys don't come out of files");
            model.isSound = model.isSound &&
                            (!factory.isReferenceDarkProperty(set.key, key) ||
                             !object.hasDarkProperty(key) || object.isReferenceDarkProperty(key));
        }
        model.isSound = uids.insert(object.getInstanceUID()).second && !failed && model.isSound;
        objects.insert(objects.end(), set.references.begin(), set.references.end());
        require(objects.size() <= model.sets, "an object is in one place only");
    }
    require(!model.isSound || objects.size() == model.sets, "no object is lost");
    model.digest = trail.digest();
}

Model parse(std::istream& stream, fuzz::Run& run, bool withErrorHandler) {
    using Errors = fuzz::CheckingErrorHandler;
    const boost::shared_ptr<Errors> errors(withErrorHandler ? new Errors(run.trail) : nullptr);
    // The model's reports may come after a fatal error.
    const boost::shared_ptr<Errors> modelErrors(withErrorHandler ? new Errors(run.trail) : nullptr);
    factory.setErrorHandler(modelErrors);
    Model model;
    CheckingParser modelParser(model);
    modelParser.setErrorHandler(modelErrors.get());
    MXFMetadataParser parser(modelParser, metadata::standardPrimer());
    parser.setErrorHandler(errors.get());
    GenericKLVReader reader(parser);
    reader.setErrorHandler(errors.get());
    run.failure =
        fuzz::failureOf(errors.get(), [&] { failsBy(noPrimer, [&] { reader.parse(stream); }); });
    factory.setErrorHandler(nullptr);
    require(model.last == 'A' || model.last == 'E', "a region ends with its parse");
    judge(model);
    run.trail.add("model", {model.digest});
    return model;
}

/// A tree as bytes, none where it can't be coded.
std::string code(const Root& root, std::uint32_t alignment) {
    std::ostringstream stream;
    GenericKLVWriter writer(stream);
    MXFMetadataCoder coder(writer);
    coder.setPrimerAlignment(alignment);
    MXFMetadataModelCoder modelCoder(coder, factory);
    const bool failed = failsBy(filesFaults, [&] {
        modelCoder.startMetadata();
        modelCoder.model({root});
        modelCoder.endMetadata();
    });
    return failed ? std::string() : stream.str();
}

} // namespace

void fuzz::testInput(const Input& input) {
    Model model;
    readEachWay(input, [&](std::istream& stream, Run& run) {
        model = parse(stream, run, input.withErrorHandler);
    });
    TestStream stream(input.bytes, {true, input.readSize, input.failAt});
    Run run;
    const Model other = parse(stream, run, !input.withErrorHandler);
    require(other.digest == model.digest, "an error handler doesn't change the model");
    for (const Root& root : model.roots) {
        const std::string bytes = code(root, 64 * input.choice);
        if (!bytes.empty()) {
            std::istringstream coded(bytes);
            const Model again = parse(coded, run, false);
            require(run.failure.empty() && !again.roots.empty(), "what was coded can be parsed");
            require(!model.isSound || (again.digest == model.digest &&
                                       code(again.roots.front(), 64 * input.choice) == bytes),
                    "a sound tree stays the same");
        }
    }
}
