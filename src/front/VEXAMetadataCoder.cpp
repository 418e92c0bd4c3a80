#include "front/VEXAMetadataCoder.h"

#include "front/xmlMetadata.h"
#include "klv/berLength.h"
#include "klv/writeElements.h"

inline namespace vexa_toolkit {

VEXAMetadataCoder::VEXAMetadataCoder(KLVHandler& output, MXFMetadataFactory& factory)
    : filler_(output), coder_(filler_) {
    VEXAMetadataCoder::setFactory(factory);
}

VEXAMetadataCoder::~VEXAMetadataCoder() = default;

void VEXAMetadataCoder::startMetadata() {
    modelCoder_->startMetadata();
}

void VEXAMetadataCoder::endMetadata() {
    modelCoder_->endMetadata();
}

void VEXAMetadataCoder::model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) {
    modelCoder_->model(roots);
}

void VEXAMetadataCoder::xmlMetadata(const char* data, std::size_t size) {
    filler_.berLengthForm(klvutil::defaultBERForm);
    klvutil::writeIndividualItem(filler_, front::xmlMetadataKey,
                                 reinterpret_cast<const std::uint8_t*>(data), size);
}

void VEXAMetadataCoder::setFactory(MXFMetadataFactory& factory) {
    modelCoder_ =
        std::make_unique<MXFMetadtaPrimerOverrideModelCoder>(coder_, factory, primerOverride_);
}

void VEXAMetadataCoder::setKAGSize(std::uint32_t kagSize) {
    coder_.setPrimerAlignment(kagSize);
}

void VEXAMetadataCoder::setPrimerOverride(const std::vector<MXFPrimerEntry>& primer) {
    primerOverride_ = primer;
}

} // namespace vexa_toolkit
