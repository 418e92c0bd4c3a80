// MXFIndexParser over any bytes as an index region: what it tells on streams that can and can't
// seek, and that its segments, coded and parsed again, are the same.

#include "index/MXFIndexCoder.h"
#include "index/MXFIndexParser.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "support.h"

#include <sstream>

namespace {

using fuzz::require;
using Segments = std::vector<MXFIndexTableSegment>;

class CheckingIndexHandler : public MXFIndexHandler {
public:
    explicit CheckingIndexHandler(fuzz::Trail& trail) : trail_(trail) {}

    void startIndexTable() override {
        require(!open, "the region starts once");
        open = true;
    }
    void endIndexTable() override {
        require(open, "the region ends once");
        open = false;
    }
    void indexTableSegment(const MXFIndexTableSegment& segment) override {
        require(open, "segments stand in the region");
        trail_.add("segment",
                   {segment.indexEntryArray.size(), segment.deltaEntryArray.size(),
                    static_cast<std::uint64_t>(segment.indexStartPosition), segment.sliceCount});
        segments.push_back(segment);
    }

    bool open = false;
    Segments segments;

private:
    fuzz::Trail& trail_;
};

Segments codeAndParse(const Segments& segments, std::uint32_t kagSize) {
    std::stringstream stream;
    GenericKLVWriter writer(stream);
    MXFIndexCoder coder(writer);
    coder.setKAGSize(kagSize);
    coder.startIndexTable();
    for (const MXFIndexTableSegment& segment : segments) {
        coder.indexTableSegment(segment);
    }
    coder.endIndexTable();
    fuzz::Trail trail;
    CheckingIndexHandler handler(trail);
    MXFIndexParser parser(handler);
    GenericKLVReader(parser).parse(stream);
    return handler.segments;
}

} // namespace

void fuzz::testInput(const Input& input) {
    Segments segments;
    readEachWay(input, [&](std::istream& stream, Run& run) {
        CheckingIndexHandler handler(run.trail);
        CheckingErrorHandler checking(run.trail);
        CheckingErrorHandler* const errors = input.withErrorHandler ? &checking : nullptr;
        MXFIndexParser parser(handler);
        parser.setErrorHandler(errors);
        GenericKLVReader reader(parser);
        reader.setErrorHandler(errors);
        run.failure = failureOf(errors, [&] { reader.parse(stream); });
        require(!handler.open, "the region ends with the parse");
        segments = std::move(handler.segments);
    });
    if (segments.empty()) {
        return;
    }
    Segments again = codeAndParse(segments, 100 * input.choice);
    require(again.size() == segments.size(), "as many segments as were coded");
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (segments[i].instanceUID == MXFUID()) {
            require(again[i].instanceUID != MXFUID(), "an identifier is made");
            again[i].instanceUID = MXFUID();
        }
        require(again[i] == segments[i], "a coded segment is parsed the same");
    }
}
