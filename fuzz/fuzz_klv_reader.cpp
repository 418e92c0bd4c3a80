// GenericKLVReader over any bytes: what it tells, on streams that can and can't seek, and that a
// writer behind it copies the bytes.

#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "support.h"

#include <sstream>

namespace {

using fuzz::require;

/// What a writer is told by the reader is the input, as far as it could be read.
void copy(const fuzz::Input& input) {
    TestStream in(input.bytes);
    std::ostringstream out;
    GenericKLVWriter writer(out);
    GenericKLVReader reader(writer);
    fuzz::Run run(false);
    run.parse([&] { reader.parse(in); });
    const std::string copied = out.str();
    const std::string bytes(input.bytes.begin(), input.bytes.end());
    require(bytes.compare(0, copied.size(), copied) == 0, "a copy is equal to its source");
    require(!run.failure.empty() || copied.size() == bytes.size(),
            "a copy is as long as its source");
}

} // namespace

void fuzz::testInput(const Input& input) {
    GenericKLVReader reader;
    readEachWay(input, [&](std::istream& stream, Run& run) {
        KLVRecorder recorder(run.recording);
        recorder.want(input.wants);
        reader.setHandler(&recorder);
        reader.setErrorHandler(run.errors);
        run.parse([&] { reader.parse(stream); });
    });
    copy(input);
}
