#include "front/VEXAMetadataFactory.h"
#include "index/MXFIndexParser.h"
#include "metadata/MXFMetadataModelParser.h"
#include "metadata/MXFMetadataParser.h"
#include "mxf/MXFReader.h"
#include "util/check.h"

#include <vexa/front/VEXAReader.h>

#include <boost/make_shared.hpp>

#include <istream>
#include <optional>
#include <utility>

VEXAReader::~VEXAReader() = default;
VEXAMetadataHandler::~VEXAMetadataHandler() = default;

namespace {

/// From the KLV events of header metadata to models.
class MetadataChain {
public:
    MetadataChain(MXFMetadataModelHandler& handler, MXFMetadataFactory& factory,
                  ErrorHandler* errorHandler)
        : modelParser_(handler, factory), parser_(modelParser_) {
        modelParser_.setErrorHandler(errorHandler);
        parser_.setErrorHandler(errorHandler);
    }

    KLVHandler& front() { return parser_; }

private:
    MXFMetadataModelParser modelParser_;
    MXFMetadataParser parser_;
};

class VEXAReaderImpl : public VEXAReader {
public:
    VEXAReaderImpl(boost::shared_ptr<std::istream> stream, VEXAValidationMode::Enum mode)
        : stream_(std::move(stream)), mode_(mode) {}

    void setMetadataFactory(boost::shared_ptr<MXFMetadataModelFactory> factory) override {
        metadataFactory_ = std::move(factory);
    }

    void setStructureHandler(boost::shared_ptr<MXFStructureHandler> handler) override {
        structureHandler_ = std::move(handler);
    }

    void setMetadataHandler(boost::shared_ptr<VEXAMetadataHandler> handler) override {
        metadataHandler_ = std::move(handler);
    }

    void setIndexHandler(boost::shared_ptr<MXFIndexHandler> handler) override {
        indexHandler_ = std::move(handler);
    }

    void setErrorHandler(boost::shared_ptr<ErrorHandler> handler) override {
        errorHandler_ = std::move(handler);
    }

    void read() override {
        MXFReader reader;
        reader.setErrorHandler(errorHandler_.get());
        reader.setStructureHandler(structureHandler_.get());
        boost::shared_ptr<MXFMetadataModelFactory> factory = metadataFactory_;
        std::optional<MetadataChain> metadata;
        if (metadataHandler_ != nullptr) {
            if (factory == nullptr) {
                factory = boost::make_shared<VEXAMetadataFactory>();
                factory->setErrorHandler(errorHandler_);
            }
            metadata.emplace(*metadataHandler_, *factory, errorHandler_.get());
            reader.setMetadataHandler(&metadata->front());
        }
        std::optional<MXFIndexParser> index;
        if (indexHandler_ != nullptr) {
            index.emplace(*indexHandler_);
            index->setErrorHandler(errorHandler_.get());
            reader.setIndexHandler(&*index);
        }
        reader.parse(*stream_);
    }

private:
    boost::shared_ptr<std::istream> stream_;
    [[maybe_unused]] VEXAValidationMode::Enum mode_;
    boost::shared_ptr<MXFMetadataModelFactory> metadataFactory_;
    boost::shared_ptr<MXFStructureHandler> structureHandler_;
    boost::shared_ptr<VEXAMetadataHandler> metadataHandler_;
    boost::shared_ptr<MXFIndexHandler> indexHandler_;
    boost::shared_ptr<ErrorHandler> errorHandler_;
};

} // namespace

boost::shared_ptr<VEXAReader> createVEXAReader(boost::shared_ptr<std::istream> stream,
                                               VEXAValidationMode::Enum mode) {
    util::check(stream != nullptr, "stream is present");
    return boost::make_shared<VEXAReaderImpl>(std::move(stream), mode);
}
