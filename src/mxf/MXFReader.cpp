#include "mxf/MXFReader.h"

#include "klv/GenericKLVReader.h"
#include "klv/streams.h"
#include "mxf/MXFRunInSkipper.h"
#include "mxf/MXFSplitter.h"
#include "util/putback_streambuf.h"

#include <vexa/klv/DullKLVHandler.h>
#include <vexa/mxf/DullMXFStructureHandler.h>

inline namespace vexa_toolkit {

MXFReader::~MXFReader() = default;

void MXFReader::setSkipRunIn(bool skipRunIn) {
    skipRunIn_ = skipRunIn;
}

void MXFReader::setStructureHandler(MXFStructureHandler* handler) {
    structureHandler_ = handler;
}

void MXFReader::setMetadataHandler(KLVHandler* handler) {
    metadataHandler_ = handler;
}

void MXFReader::setIndexHandler(KLVHandler* handler) {
    indexHandler_ = handler;
}

void MXFReader::setEssenceHandler(KLVHandler* handler) {
    essenceHandler_ = handler;
}

void MXFReader::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

void MXFReader::setStopRequest(const std::atomic<bool>* stopRequest) {
    stopRequest_ = stopRequest;
}

void MXFReader::parse(std::istream& stream) {
    const klvutil::NoStreamExceptions noStreamExceptions(stream);
    if (stream.good() && !klvutil::isSeekable(stream)) {
        // The end of the run-in is known when the first key's beginning has been read.
        static_assert(MXFRunInSkipper::patternSize <= util::putback_streambuf::guaranteed);
        const util::putback_guard guard(stream);
        parseFromRunIn(stream);
    } else {
        parseFromRunIn(stream);
    }
}

void MXFReader::parseFromRunIn(std::istream& stream) {
    DullMXFStructureHandler noStructure;
    DullKLVHandler noSection;
    const auto sectionHandler = [&](KLVHandler* handler) -> KLVHandler& {
        return handler != nullptr ? *handler : noSection;
    };
    MXFSplitter splitter(structureHandler_ != nullptr ? *structureHandler_ : noStructure,
                         sectionHandler(metadataHandler_), sectionHandler(indexHandler_),
                         sectionHandler(essenceHandler_), true);
    splitter.setErrorHandler(errorHandler_);
    GenericKLVReader reader(splitter);
    reader.setErrorHandler(errorHandler_);
    reader.setStopRequest(stopRequest_);
    const bool stopped = stopRequest_ != nullptr && stopRequest_->load(std::memory_order_relaxed);
    if (skipRunIn_ && !stopped) {
        MXFRunInSkipper skipper;
        skipper.setErrorHandler(errorHandler_);
        const std::uint32_t runIn = skipper.skip(stream, MXFRunInSkipper::longestRunIn);
        if (runIn != 0) {
            splitter.runIn(runIn);
            reader.setOrigin(runIn);
        }
    }
    reader.parse(stream);
}

} // namespace vexa_toolkit
