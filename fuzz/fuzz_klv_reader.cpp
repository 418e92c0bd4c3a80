// GenericKLVReader over any bytes: what it tells, on streams that can and can't seek, and that a
// writer behind it copies the bytes.

#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "support.h"

#include <optional>
#include <sstream>

namespace {

using fuzz::Input;
using fuzz::require;
using fuzz::Run;
using fuzz::Seeking;

/// What the input's last byte chooses.
struct Options {
    explicit Options(std::uint8_t byte)
        : wants(static_cast<fuzz::Wants>(byte & 3)), withErrorHandler((byte & 4) == 0),
          stopAfter(byte >> 3 & 3), readSize((byte & 0x20) != 0 ? 7 : 4096),
          streamFails((byte & 0xC0) == 0xC0) {}

    fuzz::Wants wants;
    bool withErrorHandler;
    /// 0 is never.
    unsigned stopAfter;
    std::size_t readSize;
    bool streamFails;
};

Run parse(GenericKLVReader& reader, const Input& input, const Options& options, Seeking seeking,
          std::uint64_t watched = 0) {
    Run run;
    run.trail = fuzz::Trail(watched);
    fuzz::CheckingKLVHandler handler(run.trail, options.wants);
    fuzz::CheckingErrorHandler errors(run.trail);
    bool stop = false;
    handler.stopAfter(options.stopAfter, &stop);
    reader.setHandler(&handler);
    reader.setErrorHandler(options.withErrorHandler ? &errors : nullptr);
    fuzz::InputStream stream(input, seeking, options.readSize,
                             options.streamFails ? input.size / 2 : fuzz::InputStream::never);
    run.failure = fuzz::failureOf(options.withErrorHandler ? &errors : nullptr, [&] {
        reader.parse(stream, std::streampos(std::streamoff(-1)), stop);
    });
    run.stopped = stop;
    require(!handler.isOpen(), "endStream follows the parse");
    return run;
}

/// What a writer is told by the reader is the input, as far as it could be read.
void copy(const Input& input) {
    fuzz::InputStream in(input, Seeking::None, 4096);
    std::ostringstream out;
    GenericKLVWriter writer(out);
    GenericKLVReader reader(writer);
    const std::string failure = fuzz::failureOf(nullptr, [&] { reader.parse(in); });
    const std::string copied = out.str();
    const std::string bytes(reinterpret_cast<const char*>(input.data), input.size);
    require(bytes.compare(0, copied.size(), copied) == 0, "a copy is equal to its source");
    require(!failure.empty() || copied.size() == bytes.size(), "a copy is as long as its source");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const Input input{data, size - 1};
    const Options options(data[size - 1]);
    const fuzz::AllocationLimit limit(fuzz::AllocationLimit::forInput(size));
    GenericKLVReader reader;
    const Run unseekable = parse(reader, input, options, Seeking::None);
    for (const Seeking seeking : {Seeking::WithinData, Seeking::Anywhere}) {
        const Run seekable =
            parse(reader, input, options, seeking, unseekable.trail.countBeforeFailure());
        // A seek may cross the place where reading fails.
        if (!options.streamFails) {
            checkSame(unseekable, seekable, seeking);
        }
    }
    copy(input);
    return 0;
}
