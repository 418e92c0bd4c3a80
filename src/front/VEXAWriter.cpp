#include "front/FillItemKeyModeStructureFilter.h"
#include "front/MetadataKAGStructureFilter.h"
#include "front/VEXAMetadataCoder.h"
#include "front/VEXAMetadataFactory.h"
#include "front/VEXASystemCoder.h"
#include "gc/MXFGCMuxer.h"
#include "index/MXFIndexCoder.h"
#include "klv/KLVMonitor.h"
#include "klv/berLength.h"
#include "klv/positionOf.h"
#include "klv/writeElements.h"
#include "util/check.h"

#include <vexa/front/VEXAWriter.h>
#include <vexa/klv/DullKLVHandler.h>

#include <boost/make_shared.hpp>

#include <ostream>
#include <utility>

inline namespace vexa_toolkit {

namespace {

/// An output that keeps nothing but count.
class Measure {
public:
    KLVHandler& output() { return monitor_; }
    std::uint64_t bytes() { return klvutil::positionOf(monitor_.getLocator()); }

private:
    DullKLVHandler nobody_;
    KLVMonitor monitor_{nobody_};
};

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

    void setIndexAlignment(std::uint32_t alignment) override {
        indexAlignment_ = alignment;
        indexCoder_.setKAGSize(alignment);
    }

    void setPrimerOverride(const std::vector<MXFPrimerEntry>& primer) override {
        primerOverride_ = primer;
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

    std::uint64_t
    getMetadataByteCount(std::uint32_t kagSize,
                         const std::function<void(VEXAMetadataHandler&)>& tell) override {
        Measure measure;
        VEXAMetadataCoder coder(measure.output(), *factory_);
        coder.setKAGSize(kagSize);
        coder.setPrimerOverride(primerOverride_);
        tell(coder);
        return measure.bytes();
    }

    std::uint64_t getIndexByteCount(const std::function<void(MXFIndexHandler&)>& tell) override {
        Measure measure;
        MXFIndexCoder coder(measure.output());
        coder.setKAGSize(indexAlignment_);
        tell(coder);
        return measure.bytes();
    }

private:
    boost::shared_ptr<std::ostream> stream_;
    boost::shared_ptr<MXFMetadataModelFactory> factory_;
    std::vector<MXFPrimerEntry> primerOverride_;
    std::uint32_t indexAlignment_ = 512;
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

std::uint64_t getVEXASectionByteCount(std::uint64_t bytes, std::uint32_t kagSize) {
    if (kagSize == 0 || bytes % kagSize == 0) {
        return bytes;
    }
    const std::uint64_t least = bytes + klvutil::fillItemOverhead(klvutil::defaultBERForm);
    return (least + kagSize - 1) / kagSize * kagSize;
}

} // namespace vexa_toolkit
