#include "front/EssenceChain.h"
#include "front/MetadataChain.h"
#include "front/VEXAOverridableLocator.h"
#include "front/openFile.h"
#include "index/MXFIndexParser.h"
#include "mxf/MXFReader.h"
#include "util/check.h"

#include <vexa/front/VEXAReader.h>

#include <boost/make_shared.hpp>

#include <atomic>
#include <istream>
#include <optional>
#include <utility>

inline namespace vexa_toolkit {

namespace {

/// What a caller has set; each may be null.
struct Handlers {
    boost::shared_ptr<MXFMetadataModelFactory> metadataFactory;
    boost::shared_ptr<VEXAGCEssenceKeyClassifier> classifier;
    boost::shared_ptr<MXFStructureHandler> structure;
    boost::shared_ptr<VEXAMetadataHandler> metadata;
    boost::shared_ptr<MXFIndexHandler> index;
    boost::shared_ptr<MXFGCStructureHandler> gcStructure;
    boost::shared_ptr<MXFSDTICPSystemHandler> sdticpSystem;
    boost::shared_ptr<MXFQZProxySystemHandler> proxySystem;
    boost::shared_ptr<MXFGCEssenceHandler> essence;
    boost::shared_ptr<ErrorHandler> errors;
};

/// The parsers of one run, each in front of its handler. What has no handler has no parser, and is
/// skipped.
class Chain {
public:
    Chain(const Handlers& handlers, const boost::shared_ptr<VEXAOverridableLocator>& locator,
          const std::atomic<bool>& stopRequest, VEXAValidationMode::Enum mode) {
        if (handlers.errors != nullptr) {
            errors_ = boost::make_shared<VEXAOverridableLocator::ErrorHandler>(
                handlers.errors, locator, &stopRequest);
        }
        reader_.setStopRequest(&stopRequest);
        reader_.setErrorHandler(errors_.get());
        reader_.setStructureHandler(handlers.structure.get());
        if (handlers.metadata != nullptr) {
            metadata_.emplace(*handlers.metadata, handlers.metadataFactory, errors_);
            reader_.setMetadataHandler(&metadata_->klvHandler());
        }
        if (handlers.index != nullptr) {
            index_.emplace(*handlers.index);
            index_->setErrorHandler(errors_.get());
            reader_.setIndexHandler(&*index_);
        }
        const EssenceChain::Handlers body{handlers.gcStructure.get(), handlers.sdticpSystem.get(),
                                          handlers.proxySystem.get(), handlers.essence.get()};
        if (body.any()) {
            essence_.emplace(body, handlers.classifier, mode == VEXAValidationMode::Restricted,
                             errors_.get(), essenceBuffer_);
            reader_.setEssenceHandler(&essence_->klvHandler());
        }
    }

    void parse(std::istream& stream) { reader_.parse(stream); }

private:
    /// Null if the caller wants no reports.
    boost::shared_ptr<ErrorHandler> errors_;
    std::optional<MetadataChain> metadata_;
    std::optional<MXFIndexParser> index_;
    EssenceBuffer essenceBuffer_;
    std::optional<EssenceChain> essence_;
    MXFReader reader_;
};

using StopRequest = std::atomic<bool>;

/// Forgets a request to stop when the run ends.
struct StopReset {
    StopRequest& request;
    ~StopReset() { request = false; }
};

class VEXAReaderImpl : public VEXAReader {
public:
    VEXAReaderImpl(boost::shared_ptr<std::istream> stream, VEXAValidationMode::Enum mode)
        : stream_(std::move(stream)), mode_(mode) {}

    void setMetadataFactory(boost::shared_ptr<MXFMetadataModelFactory> factory) override {
        handlers_.metadataFactory = std::move(factory);
    }

    void
    setEssenceKeyClassifier(boost::shared_ptr<VEXAGCEssenceKeyClassifier> classifier) override {
        handlers_.classifier = std::move(classifier);
    }

    void setStructureHandler(boost::shared_ptr<MXFStructureHandler> handler) override {
        handlers_.structure = std::move(handler);
    }

    void setMetadataHandler(boost::shared_ptr<VEXAMetadataHandler> handler) override {
        handlers_.metadata = std::move(handler);
    }

    void setIndexHandler(boost::shared_ptr<MXFIndexHandler> handler) override {
        handlers_.index = std::move(handler);
    }

    void setGCStructureHandler(boost::shared_ptr<MXFGCStructureHandler> handler) override {
        handlers_.gcStructure = std::move(handler);
    }

    void setSDTICPSystemHandler(boost::shared_ptr<MXFSDTICPSystemHandler> handler) override {
        handlers_.sdticpSystem = std::move(handler);
    }

    void setQZProxySystemHandler(boost::shared_ptr<MXFQZProxySystemHandler> handler) override {
        handlers_.proxySystem = std::move(handler);
    }

    void setEssenceHandler(boost::shared_ptr<MXFGCEssenceHandler> handler) override {
        handlers_.essence = std::move(handler);
    }

    void setErrorHandler(boost::shared_ptr<ErrorHandler> handler) override {
        handlers_.errors = std::move(handler);
    }

    /// A handler may set others during the run, for the next one, and drop the reader.
    void read() override {
        const Handlers handlers = handlers_;
        const boost::shared_ptr<std::istream> stream = stream_;
        const boost::shared_ptr<VEXAOverridableLocator> locator = locator_;
        const boost::shared_ptr<StopRequest> stopRequest = stopRequest_;
        const StopReset reset{*stopRequest};
        Chain(handlers, locator, *stopRequest, mode_).parse(*stream);
    }

    void stop() override { *stopRequest_ = true; }

private:
    boost::shared_ptr<std::istream> stream_;
    VEXAValidationMode::Enum mode_;
    Handlers handlers_;
    /// Of all runs: an error handler that looks at it when the next one fails before its parse
    /// meets the check "has locator".
    const boost::shared_ptr<VEXAOverridableLocator> locator_ =
        boost::make_shared<VEXAOverridableLocator>();
    const boost::shared_ptr<StopRequest> stopRequest_ = boost::make_shared<StopRequest>(false);
};

} // namespace

boost::shared_ptr<VEXAReader> createVEXAReader(boost::shared_ptr<std::istream> stream,
                                               VEXAValidationMode::Enum mode) {
    util::check(stream != nullptr, "stream is present");
    return boost::make_shared<VEXAReaderImpl>(std::move(stream), mode);
}

boost::shared_ptr<VEXAReader> createVEXAReader(const std::string& path,
                                               VEXAValidationMode::Enum mode) {
    return createVEXAReader(front::openFile<vexa::file_source>(path), mode);
}

} // namespace vexa_toolkit
