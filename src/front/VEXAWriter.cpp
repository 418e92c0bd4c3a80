#include "front/FillItemKeyModeStructureFilter.h"
#include "front/MetadataKAGStructureFilter.h"
#include "front/VEXAMetadataCoder.h"
#include "front/VEXAMetadataFactory.h"
#include "front/VEXASystemCoder.h"
#include "gc/MXFGCMuxer.h"
#include "index/MXFIndexCoder.h"
#include "util/check.h"

#include <vexa/front/VEXAWriter.h>

#include <boost/make_shared.hpp>

#include <ostream>
#include <utility>

inline namespace vexa_toolkit {

namespace {

class VEXAWriterImpl : public VEXAWriter {
public:
    explicit VEXAWriterImpl(boost::shared_ptr<std::ostream> stream)
        : stream_(std::move(stream)), factory_(boost::make_shared<VEXAMetadataFactory>()),
          writer_(*stream_), fillKeyFilter_(writer_.getStructureHandler(), *stream_),
          metadataCoder_(writer_.getMetadataHandler(), *factory_),
          structureFilter_(fillKeyFilter_, metadataCoder_), indexCoder_(writer_.getIndexHandler()),
          muxer_(writer_.getEssenceHandler()), systemCoder_(muxer_.getSystemHandler()) {}

    void setMetadataFactory(boost::shared_ptr<MXFMetadataModelFactory> factory) override {
        if (factory == nullptr) {
            factory = boost::make_shared<VEXAMetadataFactory>();
        }
        metadataCoder_.setFactory(*factory);
        factory_ = std::move(factory);
    }

    void setIndexAlignment(std::uint32_t alignment) override { indexCoder_.setKAGSize(alignment); }

    void setPrimerOverride(const std::vector<MXFPrimerEntry>& primer) override {
        metadataCoder_.setPrimerOverride(primer);
    }

    MXFStructureHandler* getStructureHandler() override { return &structureFilter_; }
    VEXAMetadataHandler* getMetadataHandler() override { return &metadataCoder_; }
    MXFIndexHandler* getIndexHandler() override { return &indexCoder_; }
    const Locator* getEssenceMonitor(std::uint32_t) override { return &muxer_.getLocator(); }
    MXFGCStructureHandler* getGCStructureHandler() override {
        return &muxer_.getStructureHandler();
    }
    MXFSDTICPSystemHandler* getSDTICPSystemHandler() override {
        return systemCoder_.getSDTICPSystemHandler();
    }
    MXFQZProxySystemHandler* getQZProxySystemHandler() override {
        return systemCoder_.getQZProxySystemHandler();
    }
    MXFGCEssenceHandler* getEssenceHandler() override { return &muxer_.getEssenceHandler(); }
    MXFWriter* getMXFWriter() override { return &writer_; }

private:
    boost::shared_ptr<std::ostream> stream_;
    boost::shared_ptr<MXFMetadataModelFactory> factory_;
    MXFWriter writer_;
    FillItemKeyModeStructureFilter fillKeyFilter_;
    VEXAMetadataCoder metadataCoder_;
    MetadataKAGStructureFilter structureFilter_;
    MXFIndexCoder indexCoder_;
    MXFGCMuxer muxer_;
    VEXASystemCoder systemCoder_;
};

} // namespace

boost::shared_ptr<VEXAWriter> createVEXAWriter(boost::shared_ptr<std::ostream> stream) {
    util::check(stream != nullptr, "stream is present");
    return boost::make_shared<VEXAWriterImpl>(std::move(stream));
}

} // namespace vexa_toolkit
