#include "mxf/MXFReader.h"
#include "util/check.h"

#include <vexa/front/VEXAReader.h>

#include <boost/make_shared.hpp>

#include <istream>
#include <utility>

VEXAReader::~VEXAReader() = default;

namespace {

class VEXAReaderImpl : public VEXAReader {
public:
    VEXAReaderImpl(boost::shared_ptr<std::istream> stream, VEXAValidationMode::Enum mode)
        : stream_(std::move(stream)), mode_(mode) {}

    void setStructureHandler(boost::shared_ptr<MXFStructureHandler> handler) override {
        structureHandler_ = std::move(handler);
    }

    void setErrorHandler(boost::shared_ptr<ErrorHandler> handler) override {
        errorHandler_ = std::move(handler);
    }

    void read() override {
        MXFReader reader;
        reader.setErrorHandler(errorHandler_.get());
        reader.setStructureHandler(structureHandler_.get());
        reader.parse(*stream_);
    }

private:
    boost::shared_ptr<std::istream> stream_;
    [[maybe_unused]] VEXAValidationMode::Enum mode_;
    boost::shared_ptr<MXFStructureHandler> structureHandler_;
    boost::shared_ptr<ErrorHandler> errorHandler_;
};

} // namespace

boost::shared_ptr<VEXAReader> createVEXAReader(boost::shared_ptr<std::istream> stream,
                                               VEXAValidationMode::Enum mode) {
    util::check(stream != nullptr, "stream is present");
    return boost::make_shared<VEXAReaderImpl>(std::move(stream), mode);
}
