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
#include "support/EventGrammar.h"
#include "support/EventRecorder.h"
#include "support/MetadataRecorder.h"

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

/// What becomes of a region.
struct Model {
    std::size_t sets = 0;
    std::vector<Root> roots;
    /// One tree, without UIDs that are there twice, and nothing that isn't coded or resolved again.
    bool isSound = true;
    /// Its sets as they are coded.
    std::string text;
};

/// Why a model that was parsed can't be coded: a required reference has no target; two classes have
/// the same tag; more keys want a tag than there are.
const std::regex filesFaults(".* is present|.*: (consistent primer entry|dynamic tag available)");

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
    std::set<MXFUID> uids;
    std::vector<boost::shared_ptr<const MetadataRoot>> objects(model.roots.begin(),
                                                               model.roots.end());
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const MetadataRoot& object = *objects[i];
        require(object.hasOwner() == (i >= model.roots.size()), "all but the roots have owners");
        require(factory.canCode(typeid(object)), "what was parsed can be coded");
        MXFPrimedSet set;
        const bool failed = failsBy(filesFaults, [&] { set = factory.code(objects[i]); });
        model.text += lineOf(set) + ' ' + std::to_string(set.references.size()) + '\n';
        for (const auto& [key, value] : set.properties) {
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
}

Model parse(std::istream& stream, fuzz::Run& run) {
    factory.setErrorHandler(boost::shared_ptr<ErrorHandler>(run.errors, [](ErrorHandler*) {}));
    EventRecorder recorder(run.recording);
    MXFMetadataModelParser modelParser(recorder, factory);
    modelParser.setErrorHandler(run.errors);
    Recording setRecording;
    MetadataRecorder sets(setRecording, &modelParser);
    MXFMetadataParser parser(sets, metadata::standardPrimer());
    parser.setErrorHandler(run.errors);
    GenericKLVReader reader(parser);
    reader.setErrorHandler(run.errors);
    run.parse([&] { reader.parse(stream); }, "before primed set");
    factory.setErrorHandler(nullptr);
    Model model;
    model.sets = sets.sets.size();
    model.roots = recorder.roots;
    judge(model);
    run.recording.add("model\n" + model.text);
    const std::string fault = grammarFault(setRecording.lines());
    require(fault.empty(), fault.c_str());
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
    readEachWay(input, [&](std::istream& stream, Run& run) { model = parse(stream, run); });
    TestStream stream(input.bytes, {true, input.readSize, input.failAt});
    Run otherRun(!input.withErrorHandler);
    const Model other = parse(stream, otherRun);
    require(other.text == model.text, "an error handler doesn't change the model");
    for (const Root& root : model.roots) {
        const std::string bytes = code(root, 64 * input.choice);
        if (!bytes.empty()) {
            std::istringstream coded(bytes);
            Run run(false);
            const Model again = parse(coded, run);
            require(run.failure.empty() && !again.roots.empty(), "what was coded can be parsed");
            require(!model.isSound || (again.text == model.text &&
                                       code(again.roots.front(), 64 * input.choice) == bytes),
                    "a sound tree stays the same");
        }
    }
}
