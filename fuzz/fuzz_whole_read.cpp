// VEXAReader with all handlers over any bytes: that each handler's events follow its grammar, that
// a stream which can't seek tells the same, and that the index segments and system items that were
// told, coded and parsed again, are the same.

#include "mxf/MXFReader.h"
#include "support.h"
#include "support/Recoding.h"

#include <boost/make_shared.hpp>

namespace {

using fuzz::require;

/// Made once: that takes longer than a read.
const auto factory = createVEXADefaultMetadataFactory();

void recodeSegments(const Segments& segments, unsigned choice) {
    SegmentCoding<> coding;
    coding.coder.setKAGSize(100 * choice);
    Segments again = parseSegments(coding.code(segments));
    require(again.size() == segments.size(), "as many segments as were coded");
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (segments[i].instanceUID == MXFUID()) {
            require(again[i].instanceUID != MXFUID(), "an identifier is made");
            again[i].instanceUID = MXFUID();
        }
        require(again[i] == segments[i], "a coded segment is parsed the same");
    }
}

void recodeSystemItems(const fuzz::Input& input) {
    TestStream stream(input.bytes);
    SystemRecoding coding, again;
    MXFReader reader;
    reader.setEssenceHandler(&coding.splitter);
    fuzz::Run run(false);
    run.parse([&] { reader.parse(stream); });
    if (!coding.out.str().empty()) {
        std::istringstream coded(coding.out.str());
        fuzz::Run second(false);
        second.parse([&] { GenericKLVReader(again.splitter).parse(coded); });
        require(second.failure.empty() && again.out.str() == coding.out.str(),
                "what was coded is parsed and coded the same");
    }
}

} // namespace

void fuzz::testInput(const Input& input) {
    Segments segments;
    readEachWay(input, [&](std::istream& stream, Run& run) {
        const auto recorder = boost::make_shared<EventRecorder>(run.recording);
        recorder->wanted = (input.choice & 2) != 0;
        recorder->chunked = (input.choice & 4) != 0;
        recorder->largestBuffer = (input.choice & 1) != 0 ? 512 : 0;
        const auto reader =
            createVEXAReader(boost::shared_ptr<std::istream>(&stream, [](std::istream*) {}));
        setRecorders(*reader, recorder, run.recording);
        const boost::shared_ptr<ErrorHandler> errors(run.errors, [](ErrorHandler*) {});
        reader->setErrorHandler(errors);
        factory->setErrorHandler(errors);
        reader->setMetadataFactory(factory);
        run.parse([&] { reader->read(); }, "before primed set");
        segments = recorder->segments;
    });
    if (!segments.empty()) {
        recodeSegments(segments, input.choice);
    }
    recodeSystemItems(input);
}
